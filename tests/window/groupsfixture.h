// Menu groups as packages bring them, and what of them stands in a menu bar.
#pragma once

#include "refhost/core/groupmodel.h"
#include "refhost/core/userchanges.h"
#include "refhost/window/groupactions.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>

#include <string>
#include <vector>

namespace windowtest {

using Texts = std::vector<std::string>;

inline quelhost::MenuItem item(const char* command)
{
    return {quelhost::MenuItem::Kind::Command, QString::fromUtf8(command), {}};
}

inline quelhost::MenuItem separator()
{
    return {};
}

inline quelhost::MenuItem submenu(const char* id, const char* text,
                                  const std::vector<quelhost::MenuItem>& items)
{
    return {quelhost::MenuItem::Kind::Menu,
            {},
            {QString::fromUtf8(id), QString::fromUtf8(text), items}};
}

// A group with two commands, "go" and "ask", of which the first cancels what is asked, and with one
// menu for each of the texts.
inline quelhost::ShownGroup group(const char* name, const std::vector<const char*>& menus)
{
    quelhost::MenuGroup made;
    const QString own = QString::fromUtf8(name);
    made.name = own;
    made.commands = {
        {QStringLiteral("go"),
         QStringLiteral("&Go ") + own,
         QStringLiteral("Goes"),
         {},
         QStringLiteral("{cancel}ECHO ") + own},
        {QStringLiteral("ask"), QStringLiteral("&Ask"), {}, {}, QStringLiteral("GETVAR")}};
    for (const char* text : menus)
        made.menus.push_back(
            {QString::fromUtf8(text),
             QString::fromUtf8(text),
             {item("go"), separator(), submenu("more", "&More", {item("ask"), item("go")})}});
    return {(QStringLiteral("/t/") + own + QStringLiteral(".cuix")).toStdWString(), made, false};
}

inline QKeySequence key(const char* text)
{
    return QKeySequence(QString::fromLatin1(text), QKeySequence::PortableText);
}

inline quelhost::GroupEntry entry(const char* group, const char* command)
{
    return {QString::fromUtf8(group), QString::fromUtf8(command)};
}

// The group above with keys for its commands.
inline quelhost::ShownGroup keyedGroup(const char* name,
                                       const std::vector<std::pair<const char*, const char*>>& keys)
{
    quelhost::ShownGroup shown = group(name, {});
    for (const auto& [command, keyText] : keys)
        shown.group.accelerators.push_back({QString::fromUtf8(command), key(keyText)});
    return shown;
}

inline quelhost::GroupModel modelOf(const std::vector<quelhost::ShownGroup>& groups)
{
    return quelhost::GroupModel({}, groups);
}

// The texts of macros, "^" for a cancel and "/" for Enter.
inline Texts macroTexts(const std::vector<std::vector<quelhost::MacroStep>>& macros)
{
    using Kind = quelhost::MacroStep::Kind;
    Texts texts;
    for (const std::vector<quelhost::MacroStep>& macro : macros) {
        texts.emplace_back();
        for (const quelhost::MacroStep& step : macro)
            texts.back() += step.kind == Kind::Cancel  ? "^"
                            : step.kind == Kind::Enter ? "/"
                                                       : step.text.toStdString();
    }
    return texts;
}

inline void addItems(const QWidget& of, int depth, Texts& texts)
{
    for (const QAction* action : of.actions()) {
        texts.push_back(std::string(std::size_t(depth), ' ') +
                        (action->isSeparator() ? "--" : action->text().toStdString()));
        if (action->menu() != nullptr)
            addItems(*action->menu(), depth + 1, texts);
    }
}

// What the user sees in the bar, one menu or item a text, inner ones indented by a blank.
inline Texts itemsOf(const QMenuBar& bar)
{
    Texts texts;
    addItems(bar, 0, texts);
    return texts;
}

inline void addObjects(const QObject& of, int depth, Texts& texts)
{
    texts.push_back(std::string(std::size_t(depth), ' ') + of.metaObject()->className());
    for (const QObject* child : of.children())
        addObjects(*child, depth + 1, texts);
}

// Everything that stands in the bar or would stand in a menu: items, objects inside objects, and
// the menus that there are in the whole program.
inline Texts everythingOf(const QMenuBar& bar)
{
    Texts texts = itemsOf(bar);
    addObjects(bar, 0, texts);
    for (const QAction* action : bar.actions())
        addObjects(*action->menu(), 1, texts);
    int menus = 0;
    for (const QWidget* widget : QApplication::allWidgets())
        menus += qobject_cast<const QMenu*>(widget) != nullptr ? 1 : 0;
    texts.push_back(std::to_string(menus) + " menus");
    return texts;
}

// The item of that text below `of`, or null.
inline QAction* itemNamed(const QWidget& of, const char* text)
{
    for (QAction* action : of.actions()) {
        if (action->text() == QString::fromUtf8(text))
            return action;
        if (QAction* found = action->menu() == nullptr ? nullptr : itemNamed(*action->menu(), text))
            return found;
    }
    return nullptr;
}

} // namespace windowtest
