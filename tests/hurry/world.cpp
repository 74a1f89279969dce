#include "tests/hurry/world.h"

#include "refhost/core/widetext.h"
#include "tests/support/programrun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace hurry {

namespace {

std::string contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

bool write(const QString& path, const std::string& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(QByteArray::fromStdString(content)) >= 0;
}

const AliasTable kFirstAliases = {
    {L"ML", L"MENULOAD"}, {L"MU", L"MENUUNLOAD"}, {L"CL", L"CUILOAD"}, {L"?", L"HELP"}};

} // namespace

std::optional<std::wstring> textOf(const std::string& line)
{
    const bool hasReturn = !line.empty() && line.back() == '\r';
    const std::wstring text =
        quelhost::lenientText(line.substr(0, line.size() - (hasReturn ? 1 : 0)));
    const std::size_t begin = text.find_first_not_of(L" \t");
    const std::size_t end = text.find_last_not_of(L" \t") + 1;
    const bool cancels = begin != text.npos && text.substr(begin, end - begin) == L"^C";
    return cancels ? std::nullopt : std::optional(text);
}

std::wstring listIn(const QByteArray& listing)
{
    const QByteArray start = "CUIX/LoadedCuix\tstring\t";
    for (const QByteArray& row : listing.split('\n')) {
        if (row.startsWith(start))
            return quelhost::fromUtf8(row.mid(start.size()).toStdString());
    }
    return L"(none)";
}

QString quickPlace()
{
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    const bool isUsable = memory.isDir() && memory.isWritable();
    return (isUsable ? memory.filePath() : QDir::tempPath()) + QStringLiteral("/quelhost-XXXXXX");
}

World::World(Typist typist)
    : m_folder(quickPlace())
    , files((QDir(m_folder.path()).mkpath(QStringLiteral("profile")), path("work")),
            path("profile"), contentOf(QStringLiteral(QUEL_EXAMPLES "/queld.cuix")))
    , model({quelhost::fromUtf8(path("work")), quelhost::fromUtf8(path("profile")),
             typist == Typist::Person, kFirstAliases},
            listModel(quelhost::fromUtf8(files.mainFile())))
{
    static_cast<void>(QFile::copy(QStringLiteral(QUEL_EXAMPLES "/queld.cuix"),
                                  QString::fromStdString(files.mainFile())));
    writeAliases(kFirstAliases);
    static_cast<void>(restart(quelhost::fromUtf8(files.mainFile())));
}

World::~World() = default;

std::string World::path(const char* name) const
{
    return m_folder.filePath(QString::fromLatin1(name)).toStdString();
}

QString World::profile() const
{
    return QString::fromStdString(path("profile"));
}

QString World::workFolder() const
{
    return QString::fromStdString(path("work"));
}

ListModel World::listModel(std::wstring text) const
{
    return {std::move(text), quelhost::fromUtf8(path("work")),
            [this](const std::wstring& file) { return files.groupOf(file); }};
}

void World::writeAliases(const AliasTable& aliases)
{
    std::wstring text = L"# short names\n";
    for (const auto& [alias, command] : aliases)
        text += alias + L" = " + command + L'\n';
    static_cast<void>(
        write(QString::fromStdString(path("profile/QUELD.pgp")), quelhost::toUtf8(text)));
    model.setAliasFile(aliases);
}

void World::changeFiles()
{
    for (std::size_t changes = random.below(4); changes > 0; --changes)
        done.add(files.change(random));
    // What is loaded goes more often than it would by itself.
    if (const auto entries = listrules::partsOf(model.list().text()); random.percent(30)) {
        const std::wstring& entry = random.of(entries);
        if (&entry != &entries.front() && !entry.empty()) {
            const std::string gone = quelhost::toUtf8(model.list().absolute(entry));
            static_cast<void>(QFile::remove(QString::fromStdString(gone)));
            done.add("(goes: " + gone + ")");
        }
    }
    if (const std::string change = files.changeMainFile(random); !change.empty())
        done.add(change);
    if (random.percent(5)) {
        writeAliases(lines.aliases());
        done.add("(other aliases)");
    } else if (random.percent(1)) {
        static_cast<void>(QFile::remove(QString::fromStdString(path("profile/QUELD.pgp"))));
        model.setAliasFile(std::nullopt);
        done.add("(no aliases)");
    }
}

std::string World::nextLine(Avoid avoid)
{
    for (;;) {
        const std::string line = lines.next(model.prompt());
        ConsoleModel before = model;
        feed(line);
        const bool hasDialog = model.dialogs() > before.dialogs();
        if ((avoid == Avoid::Dialogs && hasDialog) || (avoid == Avoid::TheEnd && model.hasEnded()))
            model = std::move(before);
        else
            return line;
    }
}

void World::feed(const std::string& line)
{
    done.add(line);
    if (const std::optional<std::wstring> text = textOf(line))
        model.line(*text);
    else
        model.cancel();
}

std::string World::restart(const std::wstring& found)
{
    const std::wstring before = model.list().text();
    const std::wstring mainFile = quelhost::fromUtf8(files.mainFile());
    model.restart(listModel(found));
    const std::vector<std::wstring> old = listrules::partsOf(before);
    const std::vector<std::wstring> now = listrules::partsOf(found);
    if (now.front() != mainFile)
        return "entry 0 is not the main file";
    if (old.front() == mainFile)
        return before == found ? "" : "the list is not what it was";
    auto place = old.begin();
    for (std::size_t entry = 1; entry < now.size(); ++entry) {
        place = std::find(place, old.end(), now[entry]);
        if (place == old.end())
            return "an entry that was not there";
        ++place;
    }
    return {};
}

std::wstring World::storedList() const
{
    ProgramRun run;
    run.arguments =
        QStringList{QStringLiteral("--profile"), profile(), QStringLiteral("--list-settings")};
    return listIn(run.run().output.toUtf8());
}

bool World::hasLoadedAndUnloaded(std::size_t typed) const
{
    constexpr std::size_t kLinesForOne = 200; // a tenth of what comes
    const auto least = static_cast<int>(typed / kLinesForOne);
    return model.loads() >= least && model.unloads() >= least;
}

std::string World::story() const
{
    return "QUELHOST_TEST_SEED=" + std::to_string(m_seed) + "; " + std::to_string(model.loads()) +
           " loads and " + std::to_string(model.unloads()) + " unloads; last:\n" + done.text();
}

} // namespace hurry
