// Storing a setting for good, beside the least that a disk has to do for it.
#include "bench/support/diskfolder.h"
#include "bench/support/ratios.h"

#include "refhost/core/settingsstore.h"

#include <QTemporaryDir>

#include <array>

#include <fcntl.h>
#include <unistd.h>

using namespace quelhost;

namespace {

constexpr int kPage = 4096;

void writeSetting(benchmark::State& state)
{
    const QTemporaryDir folder(ratios::diskFolderTemplate());
    if (ratios::isInMemory(folder.path()))
        return state.SkipWithError(ratios::kInMemory);
    auto opened = SettingsStore::open(folder.path(), SettingsAccess::ReadWrite);
    if (!opened)
        return state.SkipWithError("the store was not opened");
    SettingsStore& store = *opened.value();
    // Two texts of the usual length of the list, so that every write changes something.
    const std::array<Item, 2> items{
        Item::string(4, L"CUIX/LoadedCuix", L"/home/user/.config/quelhost/QUELD.cuix"),
        Item::string(4, L"CUIX/LoadedCuix",
                     L"/home/user/.config/quelhost/QUELD.cuix;/home/user/plant.cuix")};
    std::size_t round = 0;
    for (auto _ : state) {
        if (!store.write(items[++round % items.size()]))
            return state.SkipWithError("a write was refused");
    }
}

void appendPage(benchmark::State& state)
{
    const QTemporaryDir folder(ratios::diskFolderTemplate());
    if (ratios::isInMemory(folder.path()))
        return state.SkipWithError(ratios::kInMemory);
    const QByteArray path = folder.filePath(QStringLiteral("pages")).toUtf8();
    const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const std::array<char, kPage> page{};
    for (auto _ : state) {
        if (::write(file, page.data(), page.size()) != kPage || ::fsync(file) != 0) {
            state.SkipWithError("a page was not written");
            break;
        }
    }
    ::close(file);
}

} // namespace

int main(int argc, char** argv)
{
    ratios::Comparison write{"settingsWrite", writeSetting,
                             "a page appended to a file and synchronised", appendPage, 1 / 2.0};
    write.clock = ratios::Clock::Wall;
    return ratios::run(argc, argv, {write});
}
