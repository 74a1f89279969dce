// The command palette: everything that can be run, found by typing a few letters.
#pragma once

#include <QAction>
#include <QList>
#include <QString>

#include <vector>

class QWidget;

namespace quelhost {

// Actions under a common heading.
struct PaletteGroup
{
    QString name;
    QList<QAction*> actions;
};

// Shows the palette over the window. It goes by itself when something was chosen or the user turns
// away; `owned` go with it. What cannot be chosen now is left out.
// REQUIRES: the other actions stay as long as the palette is open.
void openCommandPalette(QWidget& window, const std::vector<PaletteGroup>& groups,
                        const QList<QAction*>& owned);

} // namespace quelhost
