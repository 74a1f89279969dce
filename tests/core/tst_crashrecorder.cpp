#include "refhost/core/crashrecorder.h"

#include "tests/support/rawslots.h"

#include <gtest/gtest.h>

#include <memory>

using namespace quelhost;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST(CrashRecorder, DescribesAStatusByItsNumber)
{
    EXPECT_EQ(describe(VxErrorStatus(Quel::eNoMemory, L"here", 5)), text("error status 6"));
    EXPECT_EQ(describe(VxErrorStatus(Quel::eBadType, nullptr, 0)), text("error status 3"));
}

TEST(CrashRecorder, DescribesAMessageByItself)
{
    EXPECT_EQ(describe(VxExceptionWithMsg(L"here", 5, L"100%1 \u00E9\U0001F600")),
              text("100%1 \xC3\xA9\xF0\x9F\x98\x80"));
    EXPECT_EQ(describe(VxExceptionWithMsg(nullptr, 0, nullptr)), QString());
}

TEST(CrashRecorder, KeepsALineForEachErrorInTheirOrder)
{
    CrashRecorder recorder;
    EXPECT_TRUE(recorder.lines().isEmpty());
    const VxErrorStatus status(Quel::eBadType, L"here", 0);
    const VxExceptionWithMsg message(L"here", 0, L"It broke.");
    recorder.record(&status);
    recorder.record(&message);
    recorder.record(&status);
    EXPECT_EQ(recorder.lines(),
              (QStringList{text("error status 3"), text("It broke."), text("error status 3")}));
}

TEST(CrashRecorder, ItsLinesOutliveTheErrorsWhichStayTheCatchers)
{
    CrashRecorder recorder;
    auto status = std::make_unique<VxErrorStatus>(Quel::eNoMemory, L"here", 0);
    auto message = std::make_unique<VxExceptionWithMsg>(L"here", 0, L"It broke.");
    recorder.record(status.get());
    recorder.record(message.get());
    status.reset();
    message.reset();
    EXPECT_EQ(recorder.lines(), (QStringList{text("error status 6"), text("It broke.")}));
}

TEST(CrashRecorder, KeepsTheLatestWhenThereAreMany)
{
    CrashRecorder recorder;
    for (int i = 0; i < 10'000; ++i) {
        const std::wstring number = std::to_wstring(i);
        const VxExceptionWithMsg error(nullptr, 0, number.c_str());
        recorder.record(&error);
    }
    EXPECT_LT(recorder.lines().size(), 1000);
    EXPECT_GE(recorder.lines().size(), 10);
    EXPECT_EQ(recorder.lines().last(), text("9999"));
    EXPECT_EQ(recorder.lines().at(recorder.lines().size() - 2), text("9998"));
}

TEST(CrashRecorder, AModuleReachesItThroughItsTwoSlots)
{
    CrashRecorder recorder;
    const auto* interface = static_cast<QuelCrashRecorder*>(&recorder);
    const VxErrorStatus status(Quel::eBadType, L"here", 0);
    const VxExceptionWithMsg message(L"here", 0, L"It broke.");
    raw::call<void>(interface, 0, &status);
    raw::call<void>(interface, 1, &message);
    EXPECT_EQ(recorder.lines(), (QStringList{text("error status 3"), text("It broke.")}));
}
