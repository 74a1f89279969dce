#include "host/errors.h"

#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <type_traits>

TEST(ErrorStatus, CarriesWhatItWasMadeOf)
{
    const VxErrorStatus error(Quel::eNoMemory, L"\"\"", 17);
    EXPECT_EQ(error.status(), 6);
    EXPECT_STREQ(error.context(), L"\"\"");
    EXPECT_EQ(error.code(), 17);
    EXPECT_EQ(static_cast<int>(Quel::eOk), 0);
    EXPECT_EQ(static_cast<int>(Quel::eBadType), 3);
}

TEST(ErrorStatus, CopiesItsContext)
{
    std::wstring context = L"a context of some length";
    const VxErrorStatus error(Quel::eBadType, context.c_str(), 0);
    context[0] = L'X';
    EXPECT_STREQ(error.context(), L"a context of some length");
    EXPECT_EQ(error.context(), error.context());
}

TEST(ErrorStatus, TakesANullContextForAnEmptyOne)
{
    const VxErrorStatus error(Quel::eBadType, nullptr, 0);
    ASSERT_NE(error.context(), nullptr);
    EXPECT_STREQ(error.context(), L"");
}

TEST(ErrorStatus, CanBeCopied)
{
    auto original = std::make_unique<VxErrorStatus>(Quel::eBadType, L"a context of its own", 5);
    VxErrorStatus copy(*original);
    VxErrorStatus assigned(Quel::eOk, nullptr, 0);
    assigned = *original;
    original.reset();
    EXPECT_EQ(copy.status(), 3);
    EXPECT_STREQ(copy.context(), L"a context of its own");
    EXPECT_EQ(assigned.code(), 5);
    EXPECT_STREQ(assigned.context(), L"a context of its own");
}

TEST(ErrorStatus, IsCaughtByPointerOnly)
{
    std::string caughtAs = "nothing";
    try {
        throw new VxErrorStatus(Quel::eNoMemory, L"", 0);
    } catch (const std::exception&) {
        caughtAs = "a standard exception";
    } catch (const VxErrorStatus&) {
        caughtAs = "a reference";
    } catch (VxExceptionWithMsg* error) {
        delete error;
        caughtAs = "another error";
    } catch (VxErrorStatus* error) {
        delete error;
        caughtAs = "a pointer";
    }
    EXPECT_EQ(caughtAs, "a pointer");
}

TEST(ErrorStatus, AnswersForADerivedClass)
{
    struct Derived final : VxErrorStatus
    {
        Derived()
            : VxErrorStatus(Quel::eBadType, nullptr, 0)
        {}
        Quel::ErrorStatus status() const override { return Quel::eNoMemory; }
    };
    const std::unique_ptr<VxErrorStatus> error = std::make_unique<Derived>();
    EXPECT_EQ(error->status(), 6);
    EXPECT_TRUE(std::has_virtual_destructor_v<VxErrorStatus>);
}

TEST(ExceptionWithMsg, CarriesWhatItWasMadeOf)
{
    std::wstring context = L"\"\"";
    std::wstring message = L"a message of some length";
    const VxExceptionWithMsg error(context.c_str(), -5, message.c_str());
    context[0] = L'X';
    message[0] = L'X';
    EXPECT_STREQ(error.context(), L"\"\"");
    EXPECT_EQ(error.code(), -5);
    EXPECT_STREQ(error.message(), L"a message of some length");
}

TEST(ExceptionWithMsg, TakesNullForEmpty)
{
    const VxExceptionWithMsg error(nullptr, 0, nullptr);
    EXPECT_STREQ(error.context(), L"");
    EXPECT_STREQ(error.message(), L"");
}

TEST(ExceptionWithMsg, IsNoErrorStatus)
{
    EXPECT_FALSE((std::is_base_of_v<VxErrorStatus, VxExceptionWithMsg>));
    EXPECT_FALSE((std::is_base_of_v<std::exception, VxExceptionWithMsg>));
    EXPECT_TRUE(std::has_virtual_destructor_v<VxExceptionWithMsg>);
    std::string caughtAs = "nothing";
    try {
        throw new VxExceptionWithMsg(L"", 0, L"message");
    } catch (VxErrorStatus* error) {
        delete error;
        caughtAs = "an error with a status";
    } catch (VxExceptionWithMsg* error) {
        caughtAs = error->message() == std::wstring(L"message") ? "itself" : "another";
        delete error;
    }
    EXPECT_EQ(caughtAs, "itself");
}
