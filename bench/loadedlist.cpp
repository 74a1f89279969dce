// Searches of the loaded menu file list, beside the plain way to write them.
#include "bench/support/ratios.h"

#include "menuload/loadedmenufilelist.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>

#include <map>
#include <optional>

namespace {

// A store that holds the list and nothing else, and takes no other.
class OneList final : public QueldConfig
{
public:
    explicit OneList(std::wstring text)
        : m_text(std::move(text))
    {}

    int getValue(Path, const wchar_t*, QuelVariant& value) override
    {
        value.setString(m_text.c_str(), QuelVariant::kString);
        return 0;
    }
    int setValue(Path, const wchar_t*, const QuelVariant&) override { return 1; }
    bool isItemExist(Path, const wchar_t*) override { return false; }
    int addItem(Path, const wchar_t*) override { return 1; }

private:
    std::wstring m_text;
};

// Files that all exist, in a folder that is gone with the object, and the list of them.
class ManyFiles
{
public:
    explicit ManyFiles(int count)
    {
        for (int i = 0; i < count; ++i) {
            const QString path = m_folder.filePath(QStringLiteral("package%1.cuix").arg(i));
            m_isMade = m_isMade && QFile(path).open(QIODevice::WriteOnly);
            m_text += (i == 0 ? L"" : L";") + path.toStdWString();
        }
    }

    [[nodiscard]] bool isMade() const { return m_isMade; }
    [[nodiscard]] const std::wstring& text() const { return m_text; }
    // A file beside them that is not on the list; its name begins as theirs do.
    [[nodiscard]] std::wstring another() const
    {
        return m_folder.filePath(QStringLiteral("packages.cuix")).toStdWString();
    }

private:
    QTemporaryDir m_folder;
    std::wstring m_text;
    bool m_isMade = m_folder.isValid();
};

const ManyFiles& files(int count)
{
    static std::map<int, ManyFiles> made;
    return made.try_emplace(count, count).first->second;
}

// What has to come out of every search here: nothing is found.
template<typename Search>
ratios::Work finds(int count, const Search& search)
{
    return [count, search](benchmark::State& state) {
        const ManyFiles& all = files(count);
        OneList store(all.text());
        std::optional<LoadedMenuFileList> list = LoadedMenuFileList::read(store);
        if (!all.isMade() || !list)
            return state.SkipWithError("the files could not be made");
        for (auto _ : state) {
            if (search(*list, all))
                return state.SkipWithError("what is not on the list was found");
        }
    };
}

bool isLoaded(const LoadedMenuFileList& list, const ManyFiles& all)
{
    return list.isLoaded(all.another());
}

bool unloads(LoadedMenuFileList& list, const ManyFiles& all)
{
    return list.unload(all.another()) != LoadedMenuFileList::Found::Nothing;
}

bool isLoadedPlainly(const LoadedMenuFileList&, const ManyFiles& all)
{
    const QString wanted = QFileInfo(QString::fromStdWString(all.another())).baseName().toUpper();
    const QStringList entries = QString::fromStdWString(all.text()).split(QLatin1Char(';'));
    for (const QString& entry : entries) {
        if (QFile::exists(entry) && QFileInfo(entry).baseName().toUpper() == wanted)
            return true;
    }
    return false;
}

bool hasNoSeparators(const LoadedMenuFileList&, const ManyFiles& all)
{
    const wchar_t* at = all.text().data();
    const wchar_t* const end = at + all.text().size();
    int separators = 0;
    while (const wchar_t* found =
               std::char_traits<wchar_t>::find(at, static_cast<std::size_t>(end - at), L';')) {
        ++separators;
        at = found + 1;
    }
    benchmark::DoNotOptimize(separators);
    return separators == 0;
}

} // namespace

int main(int argc, char** argv)
{
    constexpr double kOverPlain = 20;
    constexpr double kOverSeparators = 1 / 4.0;
    const std::string plain = "each entry split off, tested and cut";
    const std::string separators = "finding each separator";
    std::vector<ratios::Comparison> comparisons;
    for (const int count : {1000, 100000}) {
        const std::string number = std::to_string(count);
        const ratios::Work plainly = finds(count, isLoadedPlainly);
        comparisons.push_back(
            {"isLoaded" + number, finds(count, isLoaded), plain, plainly, kOverPlain});
        comparisons.push_back({"isLoadedScan" + number, finds(count, isLoaded), separators,
                               finds(count, hasNoSeparators), kOverSeparators});
        comparisons.push_back(
            {"unloadNothing" + number, finds(count, unloads), plain, plainly, kOverPlain});
    }
    return ratios::run(argc, argv, comparisons);
}
