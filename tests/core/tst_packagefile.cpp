#include "refhost/core/packagefile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

using namespace quelhost;

namespace {

// Runs as a user who owns nothing here, so that permissions hold for root too.
class OrdinaryUser
{
public:
    OrdinaryUser()
        : m_own(geteuid())
        , m_changed(m_own == 0 && seteuid(65534) == 0)
    {}
    ~OrdinaryUser()
    {
        if (m_changed && seteuid(m_own) != 0)
            std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t m_own;
    bool m_changed;
};

[[nodiscard]] bool makeFile(const QByteArray& path, mode_t mode)
{
    return close(open(path.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, mode)) == 0 &&
           chmod(path.constData(), mode) == 0;
}

} // namespace

TEST(PackageFile, readsAFileUpToTheLimit)
{
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("p \u00E4.cuix"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QByteArray bytes = QByteArray("0123456789\0", 11).repeated(100000);
    file.write(bytes);
    file.close();

    const Result<QByteArray> atLimit = readPackageFile(path, bytes.size());
    ASSERT_TRUE(atLimit);
    EXPECT_EQ(atLimit.value(), bytes);
    const Result<QByteArray> above = readPackageFile(path, bytes.size() - 1);
    ASSERT_FALSE(above);
    EXPECT_EQ(above.fault().text(), path + QStringLiteral(": The file is larger than 1 MiB."));
}

TEST(PackageFile, tellsWhyAFileCannotBeRead)
{
    const QTemporaryDir dir;
    const QByteArray base = dir.path().toLocal8Bit();
    ASSERT_EQ(chmod(base.constData(), 0755), 0);
    ASSERT_EQ(mkdir((base + "/folder").constData(), 0755), 0);
    ASSERT_TRUE(makeFile(base + "/locked.cuix", 0));
    ASSERT_TRUE(makeFile(base + "/folder/inside.cuix", 0644));
    ASSERT_EQ(chmod((base + "/folder").constData(), 0), 0);
    ASSERT_EQ(mkfifo((base + "/pipe.cuix").constData(), 0644), 0);
    ASSERT_EQ(symlink("nowhere", (base + "/dangling.cuix").constData()), 0);
    ASSERT_EQ(symlink("loop.cuix", (base + "/loop.cuix").constData()), 0);

    struct Row
    {
        const char* name;
        QByteArray path;
        FaultKind kind;
        const char* sentence;
    };
    const char* const kMissing = "There is no such file.";
    const char* const kDenied = "The file may not be read: permission denied.";
    const char* const kSpecial = "This is not a plain file.";
    const Row rows[] = {
        {"no such file", base + "/none.cuix", FaultKind::NotFound, kMissing},
        {"no name", "", FaultKind::NotFound, kMissing},
        {"a link to nowhere", base + "/dangling.cuix", FaultKind::NotFound, kMissing},
        {"below a file", base + "/pipe.cuix/a.cuix", FaultKind::NotFound, kMissing},
        {"a link to itself", base + "/loop.cuix", FaultKind::Io,
         "The file cannot be read: Too many levels of symbolic links"},
        {"a folder", base, FaultKind::BadInput, "This is a folder, not a package."},
        {"a file without permission", base + "/locked.cuix", FaultKind::NotPermitted, kDenied},
        {"a folder without permission", base + "/folder/inside.cuix", FaultKind::NotPermitted,
         kDenied},
        {"a pipe", base + "/pipe.cuix", FaultKind::BadInput, kSpecial},
        {"a device", "/dev/zero", FaultKind::BadInput, kSpecial},
    };
    for (const Row& row : rows) {
        const OrdinaryUser user;
        const QString path = QString::fromLocal8Bit(row.path);
        const Result<QByteArray> bytes = readPackageFile(path, 1000);
        ASSERT_FALSE(bytes) << row.name;
        EXPECT_EQ(bytes.fault().kind, row.kind) << row.name;
        EXPECT_EQ(bytes.fault().sentence.toStdString(), row.sentence) << row.name;
        EXPECT_EQ(bytes.fault().file, path) << row.name;
    }
    EXPECT_EQ(chmod((base + "/folder").constData(), 0755), 0);
}
