// A small host with a store of its own, which copies and checks its bounds as every store does.
#include "host/errors.h"
#include "stream/vxstreambuf.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

// What a host defines of its errors.
VxExceptionWithMsg::VxExceptionWithMsg(const wchar_t* context, int code, const wchar_t* message)
    : m_code(code)
    , m_context(context)
    , m_message(message)
{}
VxExceptionWithMsg::~VxExceptionWithMsg() = default;
const wchar_t* VxExceptionWithMsg::message() const
{
    return m_message.c_str();
}
QuelCrashRecorder* quelGetCrashRecorder()
{
    return nullptr;
}

namespace {

class TextStore final : public VxStreamBuf
{
public:
    explicit TextStore(std::string content)
        : text(std::move(content))
    {}

    unsigned long position() const override { return m_position; }
    unsigned long length() const override { return text.size(); }
    unsigned long seek(long offset, int) override
    {
        return m_position = static_cast<unsigned long>(offset);
    }
    int readByte() override { return -1; }
    bool writeByte(unsigned char) override { return false; }
    unsigned int read(void* buffer, unsigned int count) override
    {
        const std::size_t moved = text.copy(static_cast<char*>(buffer), count, m_position);
        m_position += moved;
        return static_cast<unsigned int>(moved);
    }
    unsigned int write(const void* buffer, unsigned int count) override
    {
        text.resize(std::max(text.size(), m_position + count));
        text.replace(m_position, count, static_cast<const char*>(buffer), count);
        m_position += count;
        return count;
    }
    bool flush() override { return true; }

    std::string text;

private:
    unsigned long m_position = 0;
};

} // namespace

int main()
{
    TextStore source("from another place");
    TextStore target("Hello ");
    target.seek(6, VxStreamBuf::kFromStart);
    target.copyFrom(&source, 5, 18);
    std::cout << target.text << "\n";
    try {
        unsigned char byte = 0;
        target.getBytes(&byte, 1);
    } catch (VxExceptionWithMsg* caught) {
        const std::unique_ptr<VxExceptionWithMsg> error(caught);
        if (std::wstring(error->message()) == L"Out of stream buffer!")
            std::cout << "no more\n";
    }
}
