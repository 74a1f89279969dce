#include "refhost/window/loadedmodel.h"

#include "refhost/core/menutext.h"
#include "refhost/core/widetext.h"
#include "refhost/window/plaintip.h"

#include <QFileInfo>
#include <QFont>

#include <map>
#include <utility>
#include <vector>

namespace quelhost {

namespace {

// An addition to the words, which say the same.
QVariant fontOf(LoadedRow::Kind kind)
{
    QFont font;
    if (kind == LoadedRow::Kind::Group)
        font.setBold(true);
    else if (kind == LoadedRow::Kind::UnshownFile)
        font.setItalic(true);
    else
        return {};
    return font;
}

} // namespace

struct LoadedModel::Node
{
    LoadedRow row;
    Node* parent = nullptr;
    int place = 0; // among its parent's children
    std::vector<std::unique_ptr<Node>> children;

    Node& add(LoadedRow child)
    {
        children.push_back(std::make_unique<Node>());
        Node& node = *children.back();
        node.row = std::move(child);
        node.parent = this;
        node.place = static_cast<int>(children.size()) - 1;
        return node;
    }
};

// Makes rows of commands, whatever group they belong to.
class LoadedModel::CommandRows
{
public:
    explicit CommandRows(const GroupModel& model)
    {
        for (const GroupKey& key : model.keys().working) {
            QString& keys = m_keys[{key.group, key.command}];
            keys += (keys.isEmpty() ? QString() : QStringLiteral(", ")) + nameOf(key.keys);
        }
        for (const ShownGroup& shown : model.groups()) {
            const QString path = toQString(shown.path);
            for (const MenuCommand& command : shown.group.commands)
                m_commands.emplace(GroupEntry{shown.group.name, command.id},
                                   std::make_pair(&command, path));
        }
    }

    static QString nameOf(const QKeySequence& keys)
    {
        return keys.toString(QKeySequence::NativeText);
    }

    // REQUIRES: there is such a command.
    [[nodiscard]] LoadedRow row(LoadedRow::Kind kind, const GroupEntry& entry) const
    {
        const auto& [command, path] = m_commands.at(entry);
        const auto keys = m_keys.find(entry);
        LoadedRow row;
        row.kind = kind;
        row.name = plainMenuText(command->text);
        row.keys = keys == m_keys.end() ? QString() : keys->second;
        row.detail = command->macro;
        row.group = entry.group;
        row.command = entry.id;
        row.path = path;
        QStringList tip{row.name, command->tip, row.keys, command->macro, path};
        tip.removeAll(QString());
        row.tip = tip.join(QLatin1Char('\n'));
        return row;
    }

private:
    std::map<GroupEntry, QString> m_keys;
    std::map<GroupEntry, std::pair<const MenuCommand*, QString>> m_commands;
};

// Makes the branch of one group, or of the user's own toolbars.
class LoadedModel::Builder
{
public:
    Builder(const GroupModel& model, const CommandRows& commands)
        : m_model(model)
        , m_commands(commands)
    {}

    void addGroup(Node& root, const ShownGroup& shown, bool isMainFile)
    {
        const MenuGroup& group = shown.group;
        m_group = group.name;
        m_path = toQString(shown.path);
        LoadedRow row = rowOf(LoadedRow::Kind::Group, groupTitle(group));
        row.detail = m_path;
        row.tip = isMainFile ? m_path + QLatin1Char('\n') + qtTrId("loaded-main-file") : m_path;
        row.isMainFile = isMainFile;
        Node& node = root.add(row);
        Node& menus = addSection(node, qtTrId("loaded-menus"), group.menus.size());
        for (const Menu& menu : group.menus)
            addMenu(menus, menu);
        addToolbars(node, qtTrId("loaded-toolbars"));
        Node& commands = addSection(node, qtTrId("loaded-commands"), group.commands.size());
        for (const MenuCommand& command : group.commands)
            addCommand(commands, {m_group, command.id});
        Node& keys = addSection(node, qtTrId("loaded-keys"), group.accelerators.size());
        for (const Accelerator& accelerator : group.accelerators)
            addKey(keys, accelerator);
    }

    void addOwnToolbars(Node& root) { addToolbars(root, qtTrId("loaded-own-toolbars")); }

private:
    [[nodiscard]] LoadedRow rowOf(LoadedRow::Kind kind, const QString& name) const
    {
        LoadedRow row;
        row.kind = kind;
        row.name = name;
        row.group = m_group;
        row.path = m_path;
        return row;
    }

    [[nodiscard]] Node& addSection(Node& parent, const QString& name, std::size_t count) const
    {
        return parent.add(rowOf(LoadedRow::Kind::Section,
                                QStringLiteral("%1 (%2)").arg(name, QString::number(count))));
    }

    void addMenu(Node& parent, const Menu& menu) const
    {
        Node& node = parent.add(rowOf(LoadedRow::Kind::Menu, plainMenuText(menu.text)));
        for (const MenuItem& item : menu.items) {
            switch (item.kind) {
            case MenuItem::Kind::Separator:
                addSeparator(node);
                break;
            case MenuItem::Kind::Menu:
                addMenu(node, item.menu);
                break;
            case MenuItem::Kind::Command:
                addCommand(node, {m_group, item.command});
                break;
            }
        }
    }

    void addToolbars(Node& parent, const QString& name) const
    {
        std::vector<const EffectiveToolbar*> toolbars;
        for (const EffectiveToolbar& toolbar : m_model.toolbars()) {
            if (toolbar.name.group == m_group)
                toolbars.push_back(&toolbar);
        }
        if (toolbars.empty() && m_group.isEmpty())
            return;
        Node& section = addSection(parent, name, toolbars.size());
        for (const EffectiveToolbar* const toolbar : toolbars) {
            Node& node = section.add(rowOf(LoadedRow::Kind::Toolbar, toolbar->title));
            for (const ToolbarEntry& entry : toolbar->shownEntries) {
                if (isSeparator(entry))
                    addSeparator(node);
                else
                    addCommand(node, entry);
            }
        }
    }

    void addSeparator(Node& parent) const
    {
        parent.add(rowOf(LoadedRow::Kind::Separator, qtTrId("loaded-separator")));
    }

    void addCommand(Node& parent, const GroupEntry& entry) const
    {
        parent.add(m_commands.row(LoadedRow::Kind::Command, entry));
    }

    // The row of a key is called by its command, like all others; one that another group has says
    // so.
    void addKey(Node& parent, const Accelerator& accelerator) const
    {
        LoadedRow row = m_commands.row(LoadedRow::Kind::Key, {m_group, accelerator.command});
        row.keys = CommandRows::nameOf(accelerator.keys);
        for (const LostKey& lost : m_model.keys().lost) {
            const GroupKey own{row.group, accelerator.command, accelerator.keys};
            if (lost.wanted == own)
                row.keys = qtTrId("loaded-key-lost").arg(row.keys, lost.kept.group);
        }
        parent.add(row);
    }

    const GroupModel& m_model;
    const CommandRows& m_commands;
    QString m_group; // empty for the user
    QString m_path;
};

LoadedModel::LoadedModel(QObject* parent)
    : QAbstractItemModel(parent)
    , m_root(std::make_unique<Node>())
{}

LoadedModel::~LoadedModel() = default;

void LoadedModel::show(const GroupModel& model, const QStringList& unshownFiles)
{
    beginResetModel();
    m_root = std::make_unique<Node>();
    const CommandRows commands(model);
    for (const ShownGroup& shown : model.groups())
        Builder(model, commands).addGroup(*m_root, shown, model.isMainFile(toQString(shown.path)));
    Builder(model, commands).addOwnToolbars(*m_root);
    for (const QString& path : unshownFiles) {
        LoadedRow row;
        row.kind = LoadedRow::Kind::UnshownFile;
        row.isMissing = !QFileInfo::exists(path);
        row.isMainFile = model.isMainFile(path);
        row.name = qtTrId(row.isMissing ? "loaded-file-missing" : "loaded-file-refused")
                       .arg(QFileInfo(path).fileName());
        row.detail = path;
        row.path = path;
        row.tip = path + QLatin1Char('\n') +
                  qtTrId(row.isMissing ? "loaded-missing-tip" : "loaded-refused-tip");
        m_root->add(row);
    }
    endResetModel();
}

const LoadedRow* LoadedModel::row(const QModelIndex& index) const
{
    return index.isValid() ? &nodeOf(index).row : nullptr;
}

QModelIndex LoadedModel::keyIndex(const QString& group, const QString& key) const
{
    for (const auto& node : m_root->children) {
        if (node->row.group != group)
            continue;
        for (const auto& section : node->children) {
            for (const auto& child : section->children) {
                if (child->row.kind == LoadedRow::Kind::Key && child->row.keys == key)
                    return indexOf(*child);
            }
        }
    }
    return {};
}

const LoadedModel::Node& LoadedModel::nodeOf(const QModelIndex& index) const
{
    return index.isValid() ? *static_cast<const Node*>(index.internalPointer()) : *m_root;
}

QModelIndex LoadedModel::indexOf(const Node& node) const
{
    return createIndex(node.place, 0, const_cast<Node*>(&node));
}

QModelIndex LoadedModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const Node& node = *nodeOf(parent).children[static_cast<std::size_t>(row)];
    return createIndex(row, column, const_cast<Node*>(&node));
}

QModelIndex LoadedModel::parent(const QModelIndex& index) const
{
    const Node* const above = index.isValid() ? nodeOf(index).parent : nullptr;
    return above == nullptr || above == m_root.get() ? QModelIndex() : indexOf(*above);
}

int LoadedModel::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : static_cast<int>(nodeOf(parent).children.size());
}

int LoadedModel::columnCount(const QModelIndex&) const
{
    return kColumns;
}

QVariant LoadedModel::data(const QModelIndex& index, int role) const
{
    const LoadedRow* const found = row(index);
    if (found == nullptr)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == kName   ? found->name
               : index.column() == kKeys ? found->keys
                                         : found->detail;
    case Qt::ToolTipRole:
        return plainTip(found->tip);
    case Qt::FontRole:
        return index.column() == kName ? fontOf(found->kind) : QVariant();
    default:
        return {};
    }
}

QVariant LoadedModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == kName   ? qtTrId("loaded-column-name")
           : section == kKeys ? qtTrId("loaded-column-keys")
                              : qtTrId("loaded-column-detail");
}

} // namespace quelhost
