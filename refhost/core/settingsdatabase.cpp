#include "refhost/core/settingsdatabase.h"

#include "refhost/core/settingsconnection.h"
#include "refhost/core/settingsrow.h"
#include "refhost/core/systemfault.h"
#include "refhost/core/widetext.h"

#include <cstdint>
#include <string>
#include <utility>

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

namespace quelhost {

namespace {

constexpr const char* kTable =
    "CREATE TABLE item (category INTEGER NOT NULL, key BLOB NOT NULL, kind INTEGER NOT NULL,"
    " value BLOB NOT NULL, checksum INTEGER NOT NULL, UNIQUE (category, key)) STRICT";

// The format's number stands in the file as 'Q', 'S', number, complement of the number: no single
// damaged byte turns one format into another.
constexpr int kFormat = 1;

constexpr int formatMark(int format)
{
    return ('Q' << 24) | ('S' << 16) | (format << 8) | (0xFF - format);
}

bool isNewerFormat(int mark)
{
    const int format = (mark >> 8) & 0xFF;
    return format > kFormat && mark == formatMark(format);
}

// Valid until the statement steps on.
std::string_view bytesOf(const SQLite::Column& column)
{
    const auto* bytes = static_cast<const char*>(column.getBlob());
    return {bytes, bytes == nullptr ? 0 : static_cast<std::size_t>(column.getBytes())};
}

std::optional<Item> itemOf(SQLite::Statement& statement)
{
    SettingsRowView row;
    row.category = statement.getColumn(0).getInt64();
    row.key = bytesOf(statement.getColumn(1));
    row.kind = statement.getColumn(2).getInt64();
    row.value = bytesOf(statement.getColumn(3));
    row.checksum = statement.getColumn(4).getInt64();
    return itemOf(row);
}

void bindBytes(SQLite::Statement& statement, int index, std::string_view bytes)
{
    statement.bindNoCopy(index, bytes.data(), static_cast<int>(bytes.size()));
}

// Enough of a key to know it by; a key may have millions of characters.
QString shown(std::wstring_view key)
{
    return toQString(key.substr(0, 100));
}

Fault itemDamaged(const QString& file, std::string_view encodedKey)
{
    const QString key = shown(decodeWide(encodedKey).value_or(std::wstring()));
    return plainFault(FaultKind::Damaged, qtTrId("settings-item-damaged").arg(key, file));
}

QString notStored(std::wstring_view key, const QString& file, const QString& reason)
{
    return qtTrId("settings-not-stored").arg(shown(key), file, reason);
}

bool isKnownKind(ItemKind kind)
{
    return kind == ItemKind::Section || kind == ItemKind::Integer || kind == ItemKind::String;
}

Status checkStorable(const QString& file, const Item& item)
{
    if (!isKnownKind(item.kind)) {
        const QString reason = qtTrId("settings-reason-kind");
        return plainFault(FaultKind::BadInput, notStored(item.key, file, reason));
    }
    if (item.key.size() + item.text.size() > SettingsDatabase::kMaxCharacters) {
        const QString reason = qtTrId("settings-reason-too-long");
        return plainFault(FaultKind::BadInput, notStored(item.key, file, reason));
    }
    return Done{};
}

} // namespace

SettingsDatabase::SettingsDatabase(const QString& file, SettingsConnection connection)
    : m_file(file)
    , m_connection(std::move(connection))
{}

SettingsDatabase::~SettingsDatabase() = default;

Result<SettingsDatabase::Pointer> SettingsDatabase::openForWriting(const QString& file)
{
    Result<SettingsConnection> connection = connectForWriting(file);
    if (!connection)
        return connection.fault();
    Pointer database(new SettingsDatabase(file, std::move(connection.value())));
    if (const Status sound = database->checkSound(); !sound)
        return sound.fault();
    if (const Status prepared = database->prepareForWriting(); !prepared)
        return prepared.fault();
    return database;
}

Result<SettingsDatabase::Pointer> SettingsDatabase::openForReading(const QString& file)
{
    Result<SettingsConnection> connection = connectForReading(file);
    if (!connection)
        return connection.fault();
    Pointer database(new SettingsDatabase(file, std::move(connection.value())));
    if (const Status sound = database->checkSound(); !sound)
        return sound.fault();
    return database;
}

Status SettingsDatabase::create(const QString& file)
{
    const Result<SettingsConnection> made = connectToNew(file);
    if (!made)
        return made.fault();
    SQLite::Database& connection = *made.value();
    return attempt(
        connection,
        [&]() -> Status {
            SQLite::Transaction transaction(connection);
            connection.exec(kTable);
            connection.exec("PRAGMA user_version=" + std::to_string(formatMark(kFormat)));
            transaction.commit();
            return Done{};
        },
        [&](const QString& reason) { return qtTrId("settings-not-made").arg(file, reason); });
}

Result<std::optional<Item>> SettingsDatabase::read(int category, const std::wstring& key) const
{
    return attempt(
        *m_connection, [&] { return fetch(category, encodeWide(key)); },
        [&](const QString& reason) {
            return qtTrId("settings-item-not-read").arg(shown(key), m_file, reason);
        });
}

Result<std::vector<Item>> SettingsDatabase::all() const
{
    const auto readRows = [this]() -> Result<std::vector<Item>> {
        std::vector<Item> items;
        SQLite::Statement rows(*m_connection, "SELECT category, key, kind, value, checksum"
                                              " FROM item ORDER BY category, key");
        while (rows.executeStep()) {
            std::optional<Item> item = itemOf(rows);
            if (!item)
                return itemDamaged(m_file, bytesOf(rows.getColumn(1)));
            items.push_back(std::move(*item));
        }
        return items;
    };
    return attempt(*m_connection, readRows,
                   [this](const QString& reason) { return notReadSentence(reason); });
}

Status SettingsDatabase::change(const SettingsEdit& edit)
{
    for (const Item& item : edit.written) {
        if (const Status storable = checkStorable(m_file, item); !storable)
            return storable;
    }
    const auto changeRows = [&]() -> Status {
        SQLite::Transaction transaction(*m_connection, SQLite::TransactionBehavior::IMMEDIATE);
        for (const Item& item : edit.written) {
            if (const Status stored = store(rowOf(item)); !stored)
                return stored;
        }
        for (const auto& [category, key] : edit.removed) {
            if (const Status removed = remove(category, encodeWide(key)); !removed)
                return removed;
        }
        transaction.commit();
        return Done{};
    };
    Status stored = attempt(*m_connection, changeRows, [&](const QString& reason) {
        return notStored(edit.firstKey(), m_file, reason);
    });
    if (!stored && stored.fault().kind == FaultKind::Io)
        dropFailedWrite();
    return stored;
}

Status SettingsDatabase::copyTo(const QString& copy) const
{
    const auto sentence = [&](const QString& reason) {
        return qtTrId("settings-not-made").arg(copy, reason);
    };
    Result<SettingsConnection> made = connectToNew(copy);
    if (!made)
        return made.fault();
    const SettingsDatabase target(copy, std::move(made.value()));
    const auto copyPages = [&]() -> Status {
        SQLite::Backup backup(*target.m_connection, *m_connection);
        if (const int result = backup.executeStep(-1); result != SQLITE_DONE) {
            const SettingsTrouble trouble = troubleOf(result, 0);
            return plainFault(trouble.kind, sentence(trouble.reason));
        }
        return Done{};
    };
    if (const Status copied = attempt(*m_connection, copyPages, sentence); !copied)
        return copied;
    // The copy's header speaks of a log, as the original's does; a copy is to be one file alone.
    const auto makeSingle = [&]() -> Status {
        target.m_connection->exec("PRAGMA journal_mode=MEMORY");
        // A header can forbid writing, and it is copied as it is.
        if (sqlite3_db_readonly(target.m_connection->getHandle(), "main") != 0)
            return plainFault(FaultKind::Damaged, sentence(qtTrId("settings-reason-damaged")));
        return Done{};
    };
    if (const Status single = attempt(*target.m_connection, makeSingle, sentence); !single)
        return single;
    return target.checkSound();
}

Status SettingsDatabase::checkSound() const
{
    const Status structure = attempt(
        *m_connection, [this] { return checkStructure(); },
        [this](const QString& reason) { return notReadSentence(reason); });
    if (!structure)
        return structure;
    if (const auto items = all(); !items)
        return items.fault();
    return Done{};
}

Status SettingsDatabase::checkStructure() const
{
    const auto damaged = [this] {
        return plainFault(FaultKind::Damaged, notReadSentence(qtTrId("settings-reason-damaged")));
    };
    if (m_connection->execAndGet("PRAGMA integrity_check(1)").getString() != "ok")
        return damaged();
    const int mark = m_connection->execAndGet("PRAGMA user_version").getInt();
    if (isNewerFormat(mark))
        return plainFault(FaultKind::BadInput, qtTrId("settings-newer-format").arg(m_file));
    SQLite::Statement table(*m_connection, "SELECT sql FROM sqlite_schema WHERE name = 'item'");
    if (mark != formatMark(kFormat) || !table.executeStep())
        return damaged();
    if (table.getColumn(0).getString() != kTable)
        return damaged();
    return Done{};
}

Status SettingsDatabase::prepareForWriting()
{
    const auto prepare = [this]() -> Status {
        m_connection->exec("PRAGMA journal_mode=WAL");
        m_connection->exec("PRAGMA synchronous=FULL");
        // Says now, not at the first write, that the log cannot be written.
        m_connection->exec("BEGIN IMMEDIATE");
        m_connection->exec("ROLLBACK");
        foldLogOnClose(*m_connection);
        return Done{};
    };
    return attempt(*m_connection, prepare, [this](const QString& reason) {
        return qtTrId("settings-not-opened").arg(m_file, reason);
    });
}

Result<std::optional<Item>> SettingsDatabase::fetch(int category, std::string_view key) const
{
    SQLite::Statement row(*m_connection, "SELECT category, key, kind, value, checksum FROM item"
                                         " WHERE category = ? AND key = ?");
    row.bind(1, category);
    bindBytes(row, 2, key);
    if (!row.executeStep())
        return std::optional<Item>();
    std::optional<Item> item = itemOf(row);
    if (!item)
        return itemDamaged(m_file, key);
    return item;
}

Status SettingsDatabase::store(const SettingsRow& row)
{
    if (const auto former = fetch(static_cast<int>(row.category), row.key); !former)
        return former.fault();
    SQLite::Statement statement(*m_connection,
                                "INSERT INTO item (category, key, kind, value, checksum)"
                                " VALUES (?, ?, ?, ?, ?) ON CONFLICT (category, key) DO UPDATE SET"
                                " kind = excluded.kind, value = excluded.value,"
                                " checksum = excluded.checksum");
    statement.bind(1, row.category);
    bindBytes(statement, 2, row.key);
    statement.bind(3, row.kind);
    bindBytes(statement, 4, row.value);
    statement.bind(5, row.checksum);
    statement.exec();
    return Done{};
}

Status SettingsDatabase::remove(int category, std::string_view key)
{
    if (const auto former = fetch(category, key); !former)
        return former.fault();
    SQLite::Statement statement(*m_connection, "DELETE FROM item WHERE category = ? AND key = ?");
    statement.bind(1, category);
    bindBytes(statement, 2, key);
    statement.exec();
    return Done{};
}

// A write can fail after its last page reached the log, for instance in the sync. The library
// ignores such pages, but after a crash it would find them complete in the log and take them for
// stored. Emptying the log, if the disk lets us, takes them away.
void SettingsDatabase::dropFailedWrite()
{
    sqlite3_wal_checkpoint_v2(m_connection->getHandle(), nullptr, SQLITE_CHECKPOINT_TRUNCATE,
                              nullptr, nullptr);
}

QString SettingsDatabase::notReadSentence(const QString& reason) const
{
    return qtTrId("settings-not-read").arg(m_file, reason);
}

} // namespace quelhost
