// Every hostile package is refused with the sentence that names its fault, and what can be told
// from the headers is told without inflating anything.
#include "refhost/core/package.h"

#include "tests/support/hostilepackages.h"
#include "tests/support/imagebuilder.h"
#include "tests/support/inflatecount.h"
#include "tests/support/packagebuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace quelhost;
using namespace packages;

namespace {

std::vector<std::string> faultsOf(const PackageReading& reading)
{
    std::vector<std::string> texts;
    if (!reading) {
        for (const Fault& fault : reading.faults())
            texts.push_back(fault.text().toStdString());
    }
    return texts;
}

std::vector<std::string> expected(const HostilePackage& package, const std::string& file)
{
    std::vector<std::string> texts;
    for (const std::string& told : package.told)
        texts.push_back(file + told);
    return texts;
}

PackageReading read(const QByteArray& bytes)
{
    return readPackageBytes(bytes, QStringLiteral("p.cuix"));
}

class EachHostilePackage : public testing::TestWithParam<HostileKind>
{};

INSTANTIATE_TEST_SUITE_P(Of, EachHostilePackage, testing::ValuesIn(hostileKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

} // namespace

TEST(HostilePackages, AreManyAndEachHasANameOfItsOwn)
{
    std::set<std::string> names;
    for (const HostilePackage& package : hostilePackages())
        EXPECT_TRUE(names.insert(package.name).second) << package.name;
    EXPECT_GE(names.size(), 150U);
    const std::vector<HostilePackage> all = hostilePackages();
    const auto inHeaders = std::count_if(all.begin(), all.end(), [](const HostilePackage& package) {
        return package.faultIn == FaultIn::Headers;
    });
    EXPECT_GE(inHeaders, 50);
}

TEST_P(EachHostilePackage, IsRefusedWithTheSentenceThatNamesTheFault)
{
    for (const HostilePackage& package : GetParam().make()) {
        const PackageReading reading = read(package.make());
        EXPECT_FALSE(reading) << package.name;
        EXPECT_EQ(faultsOf(reading), expected(package, "p.cuix")) << package.name;
    }
}

TEST_P(EachHostilePackage, IsNotInflatedForAFaultInTheHeaders)
{
    for (const HostilePackage& package : GetParam().make()) {
        if (package.faultIn != FaultIn::Headers)
            continue;
        const QByteArray bytes = package.make();
        const long before = testsupport::inflateCalls();
        const PackageReading reading = read(bytes);
        EXPECT_EQ(testsupport::inflateCalls(), before) << package.name;
        EXPECT_FALSE(reading) << package.name;
    }
}

// The count would notice.
TEST(HostilePackages, AGoodPackageIsInflated)
{
    const QByteArray stored =
        PackageBuilder().add("customization.xml", customization(), Packing::Store).build();
    long before = testsupport::inflateCalls();
    EXPECT_TRUE(read(stored));
    EXPECT_EQ(testsupport::inflateCalls(), before);

    const QByteArray deflated = packageOf(customization());
    before = testsupport::inflateCalls();
    EXPECT_TRUE(read(deflated));
    EXPECT_GT(testsupport::inflateCalls(), before);
}
