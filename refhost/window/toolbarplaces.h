// Where the toolbars of a window stand, those that are away included.
#pragma once

#include <QHash>
#include <QMainWindow>
#include <QString>
#include <QVariantMap>

#include <vector>

class QToolBar;

namespace quelhost {

// Knows every toolbar by its object name: in which area, in which row, between which others, and
// whether it is hidden. One that comes back takes its old place.
class ToolbarPlaces
{
public:
    // REQUIRES: the window outlives this object, and its toolbars have different names.
    explicit ToolbarPlaces(QMainWindow& window)
        : m_window(window)
    {}

    // Takes note of where the toolbars stand now. Those that are away keep their places among
    // them.
    void note();

    // Adds a toolbar to the window where it stood the last time. One that was never there goes
    // behind all others, in a row of its own if that is wanted.
    void add(QToolBar& toolbar, bool inNewRow);

    // A toolbar of that name was taken away for good: one that comes is another.
    void forget(const QString& name);
    // A toolbar of that name is shown when it comes back, even if it was hidden.
    void unhide(const QString& name) { m_hidden.remove(name); }

    // The places as they were noted last, as plain values, and back. What is no such value is no
    // place.
    [[nodiscard]] QVariantMap toValues() const;
    void fromValues(const QVariantMap& values);

private:
    using Row = std::vector<QString>; // names
    using Rows = std::vector<Row>;

    struct Spot
    {
        Qt::ToolBarArea area = Qt::TopToolBarArea;
        std::size_t row = 0;
        std::size_t place = 0;
    };

    [[nodiscard]] QHash<int, Rows> presentRows() const;
    void keepAbsent(const Rows& before, Rows& now) const;
    [[nodiscard]] bool find(const QString& name, Spot& spot) const;
    [[nodiscard]] QToolBar* present(const QString& name) const;
    // The first that is present in the row from that place on, or null.
    [[nodiscard]] QToolBar* firstPresent(const Row& row, std::size_t from) const;
    void insert(QToolBar& toolbar, const Spot& spot);

    QMainWindow& m_window;
    QHash<int, Rows> m_rows;       // by area
    QHash<QString, bool> m_hidden; // by name
};

} // namespace quelhost
