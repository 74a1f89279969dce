// What is loaded, as a tree: groups, and in them menus, toolbars, commands and keys.
#pragma once

#include "refhost/core/groupmodel.h"

#include <QAbstractItemModel>
#include <QStringList>

#include <memory>

namespace quelhost {

// A row of the tree.
struct LoadedRow
{
    enum class Kind {
        Group,
        UnshownFile, // listed, but missing or refused
        Section,     // "Menus" and so on
        Menu,
        Toolbar,
        Separator,
        Command, // in the list of commands, a menu or a toolbar
        Key,
    };

    Kind kind = Kind::Group;
    QString name;    // what the user calls it
    QString keys;    // that work, in the user's words
    QString detail;  // a command's macro, a file's path
    QString tip;     // all of it in rows
    QString group;   // name of the group that it belongs to, empty for none
    QString command; // id of the command that it stands for, empty for none
    QString path;    // of the file that it comes from
    bool isMainFile = false;
    bool isMissing = false;
};

class LoadedModel final : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { kName, kKeys, kDetail, kColumns };

    explicit LoadedModel(QObject* parent = nullptr);
    ~LoadedModel() override;

    // Shows these groups and behind them the files that the list names but that are not shown.
    void show(const GroupModel& model, const QStringList& unshownFiles);

    // The row, or null for an index of none.
    [[nodiscard]] const LoadedRow* row(const QModelIndex& index) const;
    // The row of the key that is called so; invalid when there is none.
    [[nodiscard]] QModelIndex keyIndex(const QString& group, const QString& key) const;

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    struct Node;
    class CommandRows;
    class Builder;

    [[nodiscard]] const Node& nodeOf(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex indexOf(const Node& node) const;

    std::unique_ptr<Node> m_root;
};

} // namespace quelhost
