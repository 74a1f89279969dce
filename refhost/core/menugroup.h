// What a customization package holds once it has been read and found good: one menu group.
//
// Plain values, freely copied. Every list keeps the order of the file. A group that comes from
// readPackage() is consistent: ids are unique in their list, and every command that an item or an
// accelerator names is among `commands`.
#pragma once

#include <QByteArray>
#include <QKeySequence>
#include <QString>

#include <map>
#include <vector>

namespace quelhost {

struct MenuCommand
{
    QString id;
    QString text;  // with `&` before the letter to press
    QString tip;   // empty when the file gives none
    QString icon;  // name of an image of the group, empty when the file gives none
    QString macro; // as written, with its words in braces
};

struct MenuItem;

// A menu of the menu bar or a menu inside another one.
struct Menu
{
    QString id; // unique among all menus of the group, inner ones included
    QString text;
    std::vector<MenuItem> items;
};

struct MenuItem
{
    enum class Kind { Command, Separator, Menu };

    Kind kind = Kind::Separator;
    QString command; // of a Command: its id
    Menu menu;       // of a Menu: the inner menu
};

struct ToolbarItem
{
    QString command; // a command's id; empty for a separator

    [[nodiscard]] bool isSeparator() const { return command.isEmpty(); }
};

struct Toolbar
{
    QString id;
    QString text;
    std::vector<ToolbarItem> items;
};

struct Accelerator
{
    QString command;
    QKeySequence keys;   // one known combination; the user's choice may be several in a row
    bool chosen = false; // by the user; a package's never is
};

struct MenuGroup
{
    QString name;
    QString title; // empty when the file gives none
    std::vector<MenuCommand> commands;
    std::vector<Menu> menus;
    std::vector<Toolbar> toolbars;
    std::vector<Accelerator> accelerators;

    // The images of the package by their name in it ("images/pump.svg"): svg as it stands, png
    // reduced to the parts that make up the picture. Safe to hand to a renderer.
    std::map<QString, QByteArray> images;
};

} // namespace quelhost
