// What refusing a hostile package takes in memory, at its peak, above the idle process.
#include "refhost/core/package.h"

#include "tests/core/childprocess.h"
#include "tests/support/damagedarchives.h"
#include "tests/support/hostilepackages.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

using namespace quelhost;
using namespace packages;

namespace {

// A sanitizer keeps what was freed for a while, and notes about every byte. There the peak only
// shows that nothing multiplies what a package holds.
#if defined(__SANITIZE_ADDRESS__)
constexpr long kMostKiB = 96L * 1024 * 8;
#else
constexpr long kMostKiB = 96L * 1024;
#endif

// A row of this process's status, in KiB.
long statusOf(const std::string& row)
{
    std::ifstream status("/proc/self/status");
    std::string name;
    while (status >> name) {
        long value = 0;
        if (name == row + ":" && status >> value)
            return value;
    }
    return -1;
}

// Lets the peak begin anew.
bool forgetPeak()
{
    std::ofstream file("/proc/self/clear_refs");
    file << "5" << std::flush;
    return file.good();
}

// In a process of its own: by how many KiB it grew for a moment, or -1 when the package was not
// refused or the peak is not known.
long growthOfRefusing(const QString& path)
{
    const test::ChildEnd end = test::runInChild([&path] {
        const long before = forgetPeak() ? statusOf("VmRSS") : -1;
        const bool refused = before > 0 && !readPackage(path);
        return std::to_string(refused ? statusOf("VmHWM") - before : -1);
    });
    return end.exitCode == 0 ? std::atol(end.output.c_str()) : -1;
}

bool write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

// 64 MiB of drawings, stored as they are, of which the last leads out of itself.
QByteArray largeDrawings()
{
    const QByteArray comment = "<!--" + QByteArray(65000, 'c') + "-->";
    const QByteArray good = "<svg>" + comment.repeated(240) + "</svg>";
    PackageBuilder builder;
    builder.add("customization.xml", customization(), Packing::Store);
    for (int i = 0; i < 4; ++i)
        builder.add("images/" + std::to_string(i) + ".svg", good, Packing::Store);
    return builder.add("images/z.svg", "<svg><use/></svg>", Packing::Store).build();
}

// As many faults as a text may have, beside other entries that are unpacked first.
QByteArray manyFaults()
{
    const QByteArray faults = "<svg>" + QByteArray("<use/>").repeated(80000) + "</svg>";
    PackageBuilder builder;
    builder.add("customization.xml", customization(QByteArray("<x/>").repeated(250000)));
    for (int i = 0; i < 100; ++i)
        builder.add("images/" + std::to_string(i) + ".svg", faults);
    return builder.build();
}

// A text of 16 MiB whose values are all kept until its last element turns out to be wrong.
QByteArray largeText()
{
    QByteArray commands;
    for (int i = 0; i < 255; ++i)
        commands += "<command id='" + QByteArray::number(i) + "' text='T' macro='x' tip='" +
                    QByteArray(65000, 't') + "'/>";
    return packageOf(customization("<commands>" + commands + "<x/></commands>"));
}

// What keeps within every limit and takes much all the same.
std::vector<HostilePackage> largePackages()
{
    constexpr FaultIn kContent = FaultIn::Content;
    return {{"64 MiB of drawings with a fault in the last", kContent, largeDrawings, {}},
            {"a hundred drawings of countless faults", kContent, manyFaults, {}},
            {"16 MiB of values with a fault behind them", kContent, largeText, {}}};
}

std::vector<HostileKind> memoryKinds()
{
    std::vector<HostileKind> kinds = hostileKinds();
    kinds.push_back({"Large", largePackages});
    return kinds;
}

class EachHostileMemory : public testing::TestWithParam<HostileKind>
{};

INSTANTIATE_TEST_SUITE_P(Of, EachHostileMemory, testing::ValuesIn(memoryKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

} // namespace

TEST(HostileMemory, ThePeakIsNoticed)
{
    const test::ChildEnd end = test::runInChild([] {
        const long before = forgetPeak() ? statusOf("VmRSS") : -1;
        {
            const QByteArray bytes(32 * kMiB, 'x');
            if (bytes.count('x') != bytes.size())
                return std::string("-1");
        }
        return std::to_string(before > 0 ? statusOf("VmHWM") - before : -1);
    });
    EXPECT_GT(std::atol(end.output.c_str()), 31 * 1024) << end.output;
}

TEST_P(EachHostileMemory, RefusingTakesNoMoreThan96MiB)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("p.cuix"));
    std::string worst;
    long most = 0;
    for (const HostilePackage& package : GetParam().make()) {
        ASSERT_TRUE(write(path, package.make())) << package.name;
        const long growth = growthOfRefusing(path);
        EXPECT_GE(growth, 0) << package.name;
        EXPECT_LE(growth, kMostKiB) << package.name;
        if (growth > most) {
            most = growth;
            worst = package.name;
        }
    }
    RecordProperty("worst", worst);
    RecordProperty("KiB", std::to_string(most));
}
