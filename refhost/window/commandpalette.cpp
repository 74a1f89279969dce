#include "refhost/window/commandpalette.h"

#include "refhost/window/libraries.h"

#include <KCommandBar>

namespace quelhost {

namespace {

// The library's bar only hides when something was chosen.
class Bar final : public KCommandBar
{
public:
    using KCommandBar::KCommandBar;

protected:
    void hideEvent(QHideEvent* event) override
    {
        KCommandBar::hideEvent(event);
        deleteLater();
    }
};

} // namespace

void openCommandPalette(QWidget& window, const std::vector<PaletteGroup>& groups,
                        const QList<QAction*>& owned)
{
    auto* const bar = new Bar(&window);
    // It notes what was chosen when it goes.
    QObject::connect(bar, &QObject::destroyed, &dropLibraryState);
    bar->setAccessibleName(qtTrId("palette-name"));
    for (QAction* const action : owned)
        action->setParent(bar);
    QVector<KCommandBar::ActionGroup> all;
    for (const PaletteGroup& group : groups)
        all.push_back({group.name, group.actions});
    bar->setActions(all);
    bar->show();
}

} // namespace quelhost
