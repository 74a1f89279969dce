// The file dialog for menu files: what it opens on, what is chosen, and what is remembered.
#include "tests/module/filedialogfixture.h"

#include <climits>
#include <cstring>

namespace filedialog {

namespace {

// A value whose block, behind its size, is just these bytes.
QuelVariant bytes(int type, const std::string& payload)
{
    const auto kind = static_cast<QuelVariant::VarType>(type);
    void* const block = QuelVariant::allocateValue(kind, static_cast<int>(payload.size()));
    std::memcpy(static_cast<char*>(block) + sizeof(std::uint32_t), payload.data(), payload.size());
    QuelVariant value;
    value.install(kind, block);
    return value;
}

QuelVariant withoutData(QuelVariant::VarType type)
{
    QuelVariant value;
    value.install(type, nullptr);
    return value;
}

// Two characters without a zero behind them.
std::string unterminated()
{
    return std::string(reinterpret_cast<const char*>(L"ab"), 2 * sizeof(wchar_t));
}

} // namespace

TEST_F(FileDialog, OpensOnTheGivenPathTheFirstTime)
{
    EXPECT_EQ(ask(), -5002);
    EXPECT_EQ(host().trace, joined({{"quelConfig() -> store", kExists + "false"},
                                    kLookups,
                                    {opened("\"/start\"", 0, -5002)}}));
    EXPECT_EQ(path, L"before");
    EXPECT_TRUE(host().settings.empty());
    EXPECT_TRUE(host().sections.empty());
}

TEST_F(FileDialog, MakesItsSectionOnTheFirstChoice)
{
    pick(L"/d/chosen.mns", 2);
    EXPECT_EQ(ask(), 5100);
    EXPECT_EQ(path, L"/d/chosen.mns");
    EXPECT_EQ(host().trace,
              joined({{"quelConfig() -> store", kExists + "false"},
                      kLookups,
                      {opened("\"/start\"", 0, 5100), "quutDelBuffer(buffer)", kExists + "false",
                       R"(addItem(4, "UserInterfaceSettings\\Select Menu File") -> 0)",
                       "setValue" + kFilterArgument + ", integer 3) -> 0",
                       "setValue" + kFileArgument + ", string \"/d/chosen.mns\") -> 0"}}));
    EXPECT_EQ(host().sections, std::set<std::wstring>{kSection});
    EXPECT_EQ(host().foreignFrees, 0);
}

TEST_F(FileDialog, OpensNextOnTheChosenFileAndFilter)
{
    pick(L"/d/chosen.mns", 2);
    EXPECT_EQ(ask(), 5100);
    host().trace.clear();
    pick(L"/e/other.cuix", 0, 2);
    EXPECT_EQ(ask(), 5100);
    EXPECT_EQ(path, L"/e/other.cuix");
    EXPECT_EQ(host().trace,
              joined({{"quelConfig() -> store", kExists + "true",
                       "getValue" + kFilterArgument + ") -> 0 integer 3",
                       "getValue" + kFileArgument + ") -> 0 string \"/d/chosen.mns\""},
                      kLookups,
                      {opened("\"/d/chosen.mns\"", 2, 5100), "quutDelBuffer(buffer)",
                       kExists + "true", "setValue" + kFilterArgument + ", integer 1) -> 0",
                       "setValue" + kFileArgument + ", string \"/e/other.cuix\") -> 0",
                       "quutRelRb(chain)"}}));
    EXPECT_TRUE(host().buffers.empty());
}

TEST_F(FileDialog, RemembersTheWholePathAndNotTheFolder)
{
    const std::wstring whole = L"/" + std::wstring(5000, L'd') + L"/\u043C\U0001F600 50%s.cuix";
    pick(whole);
    EXPECT_EQ(ask(), 5100);
    EXPECT_EQ(path, whole);
    EXPECT_EQ(host().settings[kFileKey].type(), QuelVariant::kString);
    EXPECT_EQ(host().stringSetting(kFileKey), whole);
}

TEST_F(FileDialog, HandsAnEmptyRecordToTheHost)
{
    resbuf seen{};
    std::memset(&seen, 0x55, sizeof seen);
    host().fileDialog = [&seen](resbuf& result, int&) {
        seen = result;
        return -5002;
    };
    EXPECT_EQ(ask(), -5002);
    EXPECT_EQ(seen.link, nullptr);
    EXPECT_EQ(seen.type, -1);
    EXPECT_EQ(seen.value.string, nullptr);
}

TEST_F(FileDialog, StartsWithTheStoredFilterCountedFromZero)
{
    struct Row
    {
        const char* name;
        QuelVariant stored;
        int filter;
    };
    const std::string two("\2\0\0\0\0\0\0\0", 8);
    for (const Row& row :
         {Row{"first", integer(1), 0}, Row{"second", integer(2), 1}, Row{"third", integer(3), 2},
          Row{"none", integer(0), 0}, Row{"largest", integer(INT_MAX), INT_MAX - 1},
          Row{"negative", integer(-1), -1}, Row{"smallest", integer(INT_MIN), INT_MIN},
          Row{"string", text(L"2"), 0},
          Row{"string of kind 7", text(L"2", QuelVariant::kString7), 0},
          Row{"string of kind 8", text(L"2", QuelVariant::kString8), 0},
          Row{"kind 2", bytes(2, two), 0}, Row{"kind 3", bytes(3, two), 0},
          Row{"unknown kind", bytes(99, two), 0}, Row{"kind 0 with a block", bytes(0, two), 0},
          Row{"no value", QuelVariant(), 0},
          Row{"integer without data", withoutData(QuelVariant::kInteger), 0},
          Row{"half an integer", bytes(1, two.substr(0, 2)), 0}}) {
        recording::reset();
        remember(row.stored, text(L"/d"));
        EXPECT_EQ(ask(), -5002) << row.name;
        EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{opened("\"/d\"", row.filter, -5002)})
            << row.name;
    }
}

TEST_F(FileDialog, AStoredFileOfAnotherKindReplacesTheGivenPathByNothing)
{
    struct Row
    {
        const char* name;
        QuelVariant stored;
        const char* location;
    };
    for (const Row& row :
         {Row{"string", text(L"/\u00E9\U0001F600/x.cuix"), "\"/\u00E9\U0001F600/x.cuix\""},
          Row{"empty string", text(L""), "\"\""}, Row{"integer", integer(7), "\"\""},
          Row{"string of kind 7", text(L"/x", QuelVariant::kString7), "\"\""},
          Row{"string of kind 8", text(L"/x", QuelVariant::kString8), "\"\""},
          Row{"kind 2", bytes(2, unterminated()), "\"\""},
          Row{"unknown kind", bytes(99, unterminated()), "\"\""},
          Row{"kind 0 with a block", bytes(0, unterminated()), "\"\""},
          Row{"no value", QuelVariant(), "\"\""},
          Row{"string without data", withoutData(QuelVariant::kString), "\"\""},
          Row{"string without an end", bytes(5, unterminated()), "\"ab\""}}) {
        recording::reset();
        remember(integer(2), row.stored);
        EXPECT_EQ(ask(), -5002) << row.name;
        EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{opened(row.location, 1, -5002)})
            << row.name;
    }
}

TEST_F(FileDialog, ReadsTheFileEvenWhenTheFilterCannotBeRead)
{
    remember(integer(3), text(L"/d"));
    host().readFailures.next(7);
    EXPECT_EQ(ask(), -5002);
    EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{opened("\"/d\"", 0, -5002)});
}

TEST_F(FileDialog, KeepsTheGivenPathWhenTheFileCannotBeRead)
{
    remember(integer(3), text(L"/d"));
    host().readFailures.next(0);
    host().readFailures.next(-1);
    EXPECT_EQ(ask(), -5002);
    EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{opened("\"/start\"", 2, -5002)});
}

TEST_F(FileDialog, KeepsWhatItWasGivenWhenTheSectionIsEmpty)
{
    host().sections.insert(kSection);
    EXPECT_EQ(ask(), -5002);
    EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{opened("\"/start\"", 0, -5002)});
    EXPECT_EQ(host().count("getValue"), 2);
}

TEST_F(FileDialog, ReadsNothingWithoutItsSection)
{
    remember(integer(3), text(L"/d"));
    host().sections.clear();
    EXPECT_EQ(ask(), -5002);
    EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{opened("\"/start\"", 0, -5002)});
    EXPECT_EQ(host().count("getValue"), 0);
}

TEST_F(FileDialog, StoresTheChosenFilterCountedFromOneAndANegativeOneAsItIs)
{
    struct Row
    {
        int chosen;
        int stored;
    };
    for (const Row& row : {Row{0, 1}, Row{1, 2}, Row{3, 4}, Row{INT_MAX - 1, INT_MAX}, Row{-1, -1},
                           Row{-4, -4}, Row{INT_MIN, INT_MIN}}) {
        recording::reset();
        remember(text(L"of another kind"), integer(7));
        pick(L"/a.cuix", row.chosen);
        EXPECT_EQ(ask(), 5100);
        EXPECT_EQ(host().calls("setValue").front(), "setValue" + kFilterArgument + ", integer " +
                                                        std::to_string(row.stored) + ") -> 0");
        EXPECT_EQ(host().stringSetting(kFileKey), L"/a.cuix");
    }
}

TEST_F(FileDialog, AStringWithoutTextClearsThePathAndIsStored)
{
    remember(integer(3), text(L"/d"));
    host().fileDialog = [](resbuf& result, int& filter) {
        result.type = 5005;
        filter = 1;
        return 5100;
    };
    EXPECT_EQ(ask(), 5100);
    EXPECT_EQ(path, L"");
    EXPECT_EQ(host().calls("setValue"),
              (Lines{"setValue" + kFilterArgument + ", integer 2) -> 0",
                     "setValue" + kFileArgument + ", string \"\") -> 0"}));
    EXPECT_NE(host().settings[kFileKey].block(), nullptr);
    EXPECT_EQ(host().foreignFrees, 0);

    host().fileDialog = nullptr;
    host().trace.clear();
    EXPECT_EQ(ask(), -5002);
    EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{opened("\"\"", 1, -5002)});
}

TEST_F(FileDialog, AResultThatIsNoStringChangesNothing)
{
    std::wstring own = L"the host's own";
    for (const int type : {-1, 0, 1, 5000, 5001, 5002, 5003, 5004, 5006, 5010, -5005, 32767}) {
        recording::reset();
        host().fileDialog = [&own, type](resbuf& result, int& filter) {
            result.type = static_cast<short>(type);
            result.value.string = own.data();
            filter = 2;
            return 5100;
        };
        EXPECT_EQ(ask(), 5100) << type;
        EXPECT_EQ(path, L"before") << type;
        EXPECT_EQ(host().trace, joined({{"quelConfig() -> store", kExists + "false"},
                                        kLookups,
                                        {opened("\"/start\"", 0, 5100)}}))
            << type;
    }
}

TEST_F(FileDialog, OtherStatusesPassAndNothingIsStored)
{
    for (const int status : {-5002, -5001, 5000, 0, 1, -1, 5101, 5100 + 0x10000, INT_MIN}) {
        recording::reset();
        remember(integer(3), text(L"/d"));
        host().fileDialog = [status](resbuf& result, int& filter) {
            result.type = 5005;
            result.value.string = host().newBuffer(L"/half/chosen.cuix");
            result.link = new resbuf{nullptr, 5005, {}};
            result.link->value.string = host().newBuffer(L"further");
            filter = 0;
            return status;
        };
        EXPECT_EQ(ask(), status);
        EXPECT_EQ(path, L"before") << status;
        EXPECT_EQ(host().settings[kFilterKey].integerOrZero(), 3) << status;
        EXPECT_EQ(host().stringSetting(kFileKey), L"/d") << status;
        EXPECT_EQ(host().count("setValue") + host().count("addItem"), 0) << status;
        EXPECT_EQ(host().count("quutRelRb"), 1) << status;
        EXPECT_TRUE(host().buffers.empty()) << status;
        EXPECT_EQ(host().foreignFrees, 0) << status;
    }
}

TEST_F(FileDialog, ReleasesFurtherResultsBehindOneThatIsNoString)
{
    host().fileDialog = [](resbuf& result, int&) {
        result.type = 5003;
        result.value.shortInteger = 1;
        result.link = new resbuf{nullptr, 5005, {}};
        result.link->value.string = host().newBuffer(L"further");
        return 5100;
    };
    EXPECT_EQ(ask(), 5100);
    EXPECT_EQ(host().trace.back(), "quutRelRb(chain)");
    EXPECT_TRUE(host().buffers.empty());
    EXPECT_EQ(host().count("quutDelBuffer"), 0);
}

TEST_F(FileDialog, IsNotShownWithoutAStore)
{
    host().storeIsThere.next(false);
    EXPECT_EQ(ask(), -5001);
    EXPECT_EQ(host().trace, Lines{"quelConfig() -> null"});
    EXPECT_EQ(path, L"before");
}

TEST_F(FileDialog, TakesItsTextsFromTheCurrentFile)
{
    host().resources[L"QUELDRes.dll"] = {{11062, L"?"}, {11004, L"?"}, {11005, L"?"}};
    host().resources[L"VxCuiCmdsRes.dll"] = {
        {11062, L"Men\u00FCdatei"}, {11004, L"Alle(*.*)"}, {11005, L"a;b"}};
    host().resourceStack.push_back(L"VxCuiCmdsRes.dll");
    EXPECT_EQ(ask(), -5002);
    EXPECT_EQ(host().calls("vxGetFileDialog"),
              Lines{"vxGetFileDialog(\"Men\u00FCdatei\", \"/start\", \"a;b\", 0x18080002, record, "
                    "null, 0, \"Alle(*.*)\", null) -> -5002"});
    EXPECT_EQ(host().count("SetCurrentResourceName"), 0);
}

TEST_F(FileDialog, OpensWithoutTextsToo)
{
    host().resources[L"QUELDRes.dll"] = {
        {11062, std::nullopt}, {11004, std::nullopt}, {11005, std::nullopt}};
    pick(L"/a.cuix");
    EXPECT_EQ(ask(), 5100);
    EXPECT_EQ(path, L"/a.cuix");
}

TEST_F(FileDialog, MayBeGivenOneTextForThePathAndTheStart)
{
    pick(L"/a.cuix");
    EXPECT_EQ(getMenuFilePathByDialog(path, path), 5100);
    EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{opened("\"before\"", 0, 5100)});
    EXPECT_EQ(path, L"/a.cuix");
}

} // namespace filedialog
