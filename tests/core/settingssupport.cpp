#include "tests/core/settingssupport.h"

#include "refhost/core/settingsfiles.h"
#include "refhost/core/widetext.h"
#include "tests/core/childprocess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

namespace quelhost::test {

namespace {

constexpr unsigned int kOpenToAll = 0755;
constexpr unsigned int kPrivate = 0700;
constexpr int kWaitMs = 5000;

// These tests have thousands of things synchronised; in memory that takes no time.
QString scratchName()
{
    const QString memory = QStringLiteral("/dev/shm");
    const bool usable = QFileInfo(memory).isDir() && QFileInfo(memory).isWritable();
    return (usable ? memory : QDir::tempPath()) + QStringLiteral("/quelhost-XXXXXX");
}

} // namespace

ScratchFolder::ScratchFolder()
    : m_folder(scratchName())
{
    static_cast<void>(giveToOrdinaryUser(path().toStdString()));
    static_cast<void>(setMode(path(), kOpenToAll));
}

ScratchFolder::~ScratchFolder()
{
    static_cast<void>(setMode(path(), kPrivate));
}

QString ScratchFolder::file(const char* name) const
{
    return path() + QLatin1Char('/') + QString::fromLatin1(name);
}

std::vector<std::string> ScratchFolder::names() const
{
    std::vector<std::string> result;
    const QStringList names = QDir(path()).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString& name : names)
        result.push_back(name.toStdString());
    std::sort(result.begin(), result.end());
    return result;
}

QByteArray bytesOf(const QString& file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

bool setBytes(const QString& file, const QByteArray& bytes)
{
    QFile target(file);
    return target.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           target.write(bytes) == bytes.size();
}

bool setMode(const QString& path, unsigned int mode)
{
    return ::chmod(QFile::encodeName(path).constData(), mode) == 0;
}

bool copyFile(const QString& from, const QString& to)
{
    return setBytes(to, bytesOf(from));
}

std::string nameOf(FaultKind kind)
{
    switch (kind) {
    case FaultKind::NotFound:
        return "NotFound";
    case FaultKind::BadInput:
        return "BadInput";
    case FaultKind::NotPermitted:
        return "NotPermitted";
    case FaultKind::Busy:
        return "Busy";
    case FaultKind::Damaged:
        return "Damaged";
    case FaultKind::Io:
        return "Io";
    }
    return "no kind";
}

std::string told(const Status& status)
{
    return status ? "done" : nameOf(status.fault().kind);
}

std::string told(const Item& item)
{
    switch (item.kind) {
    case ItemKind::Section:
        return "section";
    case ItemKind::Integer:
        return "integer " + std::to_string(item.number);
    case ItemKind::String:
        return "string " + toUtf8(item.text);
    }
    return "no kind";
}

std::string told(const Result<std::optional<Item>>& item)
{
    if (!item)
        return nameOf(item.fault().kind);
    return item.value() ? told(*item.value()) : "nothing";
}

std::string valueIn(const SettingsStore& store, const wchar_t* key)
{
    return told(store.read(4, key));
}

std::vector<std::string> itemsIn(const SettingsStore& store)
{
    const Result<std::vector<Item>> items = store.all();
    if (!items)
        return {nameOf(items.fault().kind)};
    std::vector<std::string> result;
    for (const Item& item : items.value())
        result.push_back(std::to_string(item.category) + " " + toUtf8(item.key) + " " + told(item));
    return result;
}

bool anyContains(const std::vector<QString>& sentences, const QString& part)
{
    return std::any_of(sentences.begin(), sentences.end(),
                       [&](const QString& sentence) { return sentence.contains(part); });
}

std::unique_ptr<SettingsStore> openStore(const QString& folder, SettingsAccess access)
{
    Result<std::unique_ptr<SettingsStore>> opened = SettingsStore::open(folder, access);
    return opened ? std::move(opened.value()) : nullptr;
}

bool leaveByKill(const QString& folder, const std::wstring& text)
{
    ChildProcess child([&](int output) {
        const auto store = openStore(folder);
        const bool stored = store && store->write(Item::string(4, L"last", text));
        writeAll(output, stored ? "stored\n" : "not stored\n");
        ::pause();
    });
    const bool stored = child.readLine() == "stored";
    child.kill();
    return stored && child.wait().signal == SIGKILL;
}

bool runSql(const QString& file, const char* sql)
{
    try {
        SQLite::Database database(QFile::encodeName(file).toStdString(), SQLite::OPEN_READWRITE,
                                  kWaitMs);
        database.exec(sql);
        return true;
    } catch (const SQLite::Exception&) {
        return false;
    }
}

} // namespace quelhost::test
