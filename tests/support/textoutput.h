// An output that keeps what is written, for tests to read.
#pragma once

#include "refhost/core/output.h"

#include <string>

class TextOutput final : public quelhost::Output
{
public:
    // All that was written, as UTF-8.
    [[nodiscard]] const std::string& text() const { return m_text; }

protected:
    void put(const std::string& utf8) override { m_text += utf8; }

private:
    std::string m_text;
};
