#include "refhost/core/utf8locale.h"

namespace quelhost {

namespace {

const locale_t kNone = nullptr;

locale_t withUtf8Characters()
{
    const locale_t base = ::duplocale(::uselocale(kNone));
    const locale_t utf8 = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", base);
    return utf8 == kNone ? base : utf8;
}

} // namespace

Utf8Locale::Utf8Locale()
    : m_utf8(withUtf8Characters())
    , m_before(::uselocale(m_utf8))
{}

Utf8Locale::~Utf8Locale()
{
    ::uselocale(m_before);
    ::freelocale(m_utf8);
}

} // namespace quelhost
