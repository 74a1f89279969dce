// Memory runs out in what the module exports or registers besides the commands' runs, and in the
// values and strings that it compiles from the host's headers.
#include "tests/module/sevencommands.h"
#include "tests/module/shortagefixture.h"

#include "menufile/menufilekinds.h"
#include "menufile/menufilepath.h"
#include "module/resourcestring.h"

#include <cwchar>
#include <memory>

namespace shortage {

namespace {

const std::wstring kLong = L"a text that is too long to need no memory of its own";

FactoryPointer newFactoryOfCuiLoad()
{
    return sevenCommands().front().newFactory();
}

int lengthOf(const wchar_t* text)
{
    return static_cast<int>(std::wcslen(text));
}

void giveName()
{
    host().resources[L"VxCuiCmdsRes.dll"][6940] = kLong;
}

std::vector<Case> factoryCases(const Files&)
{
    const auto localName = [] { return lengthOf(newFactoryOfCuiLoad()->localName()); };
    return {
        {"localized name", giveName, localName},
        {"localized name that is not there", [] {}, localName},
        {"localized name without a scope",
         [] {
             giveName();
             host().globalScope.usually(false);
         },
         localName},
        {"description", [] {}, [] { return lengthOf(newFactoryOfCuiLoad()->description()); }},
        {"command made and released", [] {},
         [] {
             const FactoryPointer factory = newFactoryOfCuiLoad();
             factory->release(factory->create());
             return 0;
         }},
    };
}

std::vector<Case> exportedCases(const Files& files)
{
    static recording::Context context;
    const auto supports = [](const wchar_t* extension) {
        return [extension] { return IsSupportMenuExt(CStdStr<wchar_t>(extension)); };
    };
    const auto replace = [](const wchar_t* path) {
        return [path] { return MenuLoadReplaceAll(CStdStr<wchar_t>(path)); };
    };
    const auto askDialog = [] { host().setVariable(L"FILEDIA", short{1}); };
    return {
        {"menu file kind", [] {}, supports(L".mns")},
        {"no menu file kind", [] {}, supports(L".a rather long extension")},
        {"the one kind there is",
         [] { host().resources[L"QUELDRes.dll"][11005] = L";a rather long kind of file;"; },
         supports(L".a rather long kind of file")},
        {"warning on the command line", [] {}, replace(L"/a/rather/long/path.cuix")},
        {"warning in a box", askDialog, replace(L"/a/rather/long/path.cuix")},
        {"no warning", askDialog, replace(L"/a/rather/long/path.mns")},
        {"path by dialog",
         [path = files.plant] {
             host().fileDialogs.next({5100, path, 1, 2});
         },
         [] {
             CStdStr<wchar_t> path;
             return getMenuFilePathByDialog(path, kLong);
         }},
        {"path by prompt",
         [] {
             host().setVariable(L"MENUNAME", recording::MaybeText(kLong));
             host().strings.next({5100, kLong});
         },
         [] {
             CStdStr<wchar_t> path;
             return getMenuFilePathByCmd(path);
         }},
        {"full path", [path = files.plant] { host().filesToFind[kLong + L".cuix"] = path; },
         [] {
             CStdStr<wchar_t> path;
             return getMenuFullPath(&context, kLong, path);
         }},
        {"resource text", [] { host().resources[L"QUELDRes.dll"][8051] = kLong; },
         [] { return qumdQuResourceString(8051).length(); }},
    };
}

std::vector<Case> valueCases(const Files&)
{
    const auto none = [] {};
    static QuelVariant kept;
    const auto keep = [] { kept.setString(kLong.c_str(), QuelVariant::kString); };
    return {
        {"string formatted", none,
         [] {
             CStdStr<wchar_t> text;
             text.Format(L"%s and %d of it", kLong.c_str(), 100);
             return static_cast<int>(text.size());
         }},
        {"string formatted by a resource",
         [] { host().resources[L"QUELDRes.dll"][1] = L"a resource with %s and %s"; },
         [] {
             CStdStr<wchar_t> text(kLong);
             text.Format(1U, kLong.c_str(), L"more");
             return static_cast<int>(text.size());
         }},
        {"string of the host copied", none,
         [] {
             const QuString text(kLong.c_str());
             return static_cast<int>(CStdStr<wchar_t>(text).size());
         }},
        {"value stored and stored again", none,
         [] {
             QuelVariant value;
             value.setInteger(1);
             value.setString(kLong.c_str(), QuelVariant::kString);
             value.setString(L"", QuelVariant::kString7);
             value.setInteger(2);
             return value.integerOrZero();
         }},
        {"value copied", keep,
         [] {
             QuelVariant copy(kept);
             QuelVariant other;
             other.setInteger(1);
             other = copy;
             return static_cast<int>(other.stringOrEmpty().size());
         }},
        {"blocks of all kinds", none,
         [] {
             for (const auto kind : {QuelVariant::kNone, QuelVariant::kInteger, QuelVariant::kWide2,
                                     QuelVariant::kWide3}) {
                 QuelVariant value;
                 value.install(kind, QuelVariant::allocateValue(kind, 0));
             }
             QuelVariant value;
             value.install(QuelVariant::kString,
                           QuelVariant::allocateValue(QuelVariant::kString, 40));
             return 0;
         }},
    };
}

constexpr Group kFunctions[] = {
    {"Factories", factoryCases, 14},
    {"Exported", exportedCases, 50},
    {"Values", valueCases, 34},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Functions, Shortage, testing::ValuesIn(kFunctions),
                         [](const auto& group) { return std::string(group.param.name); });

// A factory outlives what went wrong in it.
TEST(ShortageOfAFactory, IsForgottenByItsNextCall)
{
    giveName();
    int refused = 0;
    for (int request = 1;; ++request) {
        const FactoryPointer factory = newFactoryOfCuiLoad();
        recording::MemoryWatch watch(recording::Refusal::one(request));
        const auto name = [&factory] { return factory->localName(); };
        const auto description = [&factory] { return factory->description(); };
        bool failed = false;
        try {
            watch.run(name);
            watch.run(description);
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        EXPECT_EQ(failed, watch.refused() > 0) << request;
        EXPECT_STREQ(factory->localName(), kLong.c_str()) << request;
        EXPECT_STREQ(factory->description(), L"") << request;
        EXPECT_EQ(host().resourceStack.size(), 1U) << request;
        if (!failed)
            break;
        ++refused;
    }
    EXPECT_GE(refused, 3);
}

// The recorder's own error takes the place of the one that it was told of.
TEST(ShortageOfTheRecorder, LosesNoError)
{
    for (const char* function : {"quelGetCrashRecorder", "record"}) {
        recording::reset();
        const VxErrorStatus* const thrown = host().throwOnCall(function);
        recording::MemoryWatch watch(recording::Refusal::one(1));
        const auto error = recording::errorThrownBy([&watch] {
            watch.run([] {
                QuelVariant value;
                value.setInteger(1);
            });
        });
        EXPECT_EQ(error.get(), thrown) << function;
        EXPECT_EQ(watch.refused(), 1) << function;
        EXPECT_EQ(watch.live(), Lines{}) << function;
    }
}

// The application object asks for none, whatever the host does with it.
TEST(ShortageOfTheApplication, CannotBe)
{
    recording::CommandStore store;
    recording::MemoryWatch watch(recording::Refusal::from(1));
    const int ready = watch.run([&store] {
        IQuelCmdApplication* const application = GetQuelCmdApplication();
        const int result = application->initialize();
        application->registCommand(&store);
        application->sendMessage(kQuelSessionStarted, nullptr, nullptr);
        application->unregistCommand(&store);
        application->uninitialize();
        return result;
    });
    EXPECT_EQ(ready, 1);
    EXPECT_EQ(watch.requests(), 0);
    EXPECT_EQ(store.added.size(), sevenCommands().size());
    EXPECT_EQ(store.removedNames.size(), sevenCommands().size());
}

} // namespace shortage
