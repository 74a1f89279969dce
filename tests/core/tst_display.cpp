#include "refhost/core/display.h"

#include "refhost/core/filedescriptor.h"
#include "tests/core/childprocess.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// A variable of the environment until it goes; null stands for one that is not there.
class Variable
{
public:
    Variable(const char* name, const char* value)
        : m_name(name)
        , m_wasThere(::getenv(name) != nullptr)
        , m_former(m_wasThere ? ::getenv(name) : "")
    {
        set(value);
    }
    ~Variable() { set(m_wasThere ? m_former.c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void set(const char* value)
    {
        if (value == nullptr)
            ::unsetenv(m_name);
        else
            ::setenv(m_name, value, 1);
    }

    const char* const m_name;
    const bool m_wasThere;
    const std::string m_former;
};

// What displayAnswers says with this environment.
bool answers(const char* display, const char* platform = nullptr)
{
    const Variable first("DISPLAY", display);
    const Variable second("QT_QPA_PLATFORM", platform);
    const Variable third("WAYLAND_DISPLAY", nullptr);
    return displayAnswers();
}

// A display server of this machine that gives everybody the same reply to the first request.
class Server
{
public:
    explicit Server(const std::string& reply)
        : m_port(listenOn(m_listener.number()))
        , m_process([this, reply](int) { serve(reply); })
    {}

    // How the environment names it; empty when it could not be set up.
    [[nodiscard]] std::string display() const
    {
        constexpr int kPortOfDisplay0 = 6000;
        return m_port < 0 ? "" : "127.0.0.1:" + std::to_string(m_port - kPortOfDisplay0);
    }

private:
    static int listenOn(int listener)
    {
        struct sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto* const place = reinterpret_cast<struct sockaddr*>(&address);
        socklen_t size = sizeof address;
        const bool listens = ::bind(listener, place, size) == 0 && ::listen(listener, 8) == 0 &&
                             ::getsockname(listener, place, &size) == 0;
        return listens ? ntohs(address.sin_port) : -1;
    }

    void serve(const std::string& reply) const
    {
        for (;;) {
            const FileDescriptor client(::accept(m_listener.number(), nullptr, nullptr));
            std::array<char, 256> request{};
            if (::read(client.number(), request.data(), request.size()) > 0)
                writeAll(client.number(), reply);
            // The client ends the connection, so that nothing is lost on the way.
            while (::read(client.number(), request.data(), request.size()) > 0) {
            }
        }
    }

    const FileDescriptor m_listener{::socket(AF_INET, SOCK_STREAM, 0)};
    const int m_port;
    const ChildProcess m_process;
};

} // namespace

TEST(Display, WithoutOneThereIsNone)
{
    EXPECT_FALSE(answers(nullptr));
    EXPECT_FALSE(answers(""));
}

TEST(Display, AServerThatIsNotThereIsNoticedQuickly)
{
    const auto start = std::chrono::steady_clock::now();
    for (const char* display : {":7641", "unix:7641", "localhost:7641", "nonsense", "%1:0"}) {
        SCOPED_TRACE(display);
        EXPECT_FALSE(answers(display));
        EXPECT_FALSE(answers(display, "xcb"));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(Display, APlatformWithoutWindowsIsNone)
{
    for (const char* platform : {"offscreen", "minimal", "offscreen:size=1x1"}) {
        SCOPED_TRACE(platform);
        EXPECT_FALSE(answers(":7641", platform));
        EXPECT_FALSE(answers(nullptr, platform));
    }
}

TEST(Display, AServerThatLetsNobodyInIsNone)
{
    // Refused, with a reason of four bytes.
    const Server server(std::string("\x00\x04\x0b\x00\x00\x00\x01\x00Nope", 12));
    ASSERT_NE(server.display(), "");
    EXPECT_FALSE(answers(server.display().c_str()));
}

TEST(Display, AServerThatAnswersIsOne)
{
    // Accepted, with 8 units of 4 bytes: release, first id, mask of ids, and no screens.
    const std::string accepted("\x01\x00\x0b\x00\x00\x00\x08\x00", 8);
    const std::string ids("\x01\x00\x00\x00\x00\x00\x20\x00\xff\xff\x1f\x00", 12);
    const Server server(accepted + ids + std::string(20, '\0'));
    ASSERT_NE(server.display(), "");
    EXPECT_TRUE(answers(server.display().c_str()));
    EXPECT_TRUE(answers(server.display().c_str(), "xcb"));
    EXPECT_FALSE(answers(server.display().c_str(), "offscreen"));
}
