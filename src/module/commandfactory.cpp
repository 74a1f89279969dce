#include "module/commandfactory.h"

#include "module/resourcescopes.h"

#include <cwchar>

namespace {

constexpr std::size_t kNameRoom = 1024;
constexpr unsigned int kNoDescription = 0xFFFFFFFF;

} // namespace

const wchar_t* CommandFactoryBase::module() const
{
    return L"VxCuiCmds.dll";
}

const wchar_t* CommandFactoryBase::localName() const
{
    return loadOnce(m_localName, classNumber()) ? m_localName.c_str() : globalName();
}

const wchar_t* CommandFactoryBase::description() const
{
    return loadOnce(m_description, kNoDescription) ? m_description.c_str() : L"";
}

// A file that cannot be selected is no error: the lookup goes on in whatever file is current.
bool CommandFactoryBase::loadOnce(std::wstring& cache, unsigned int id)
{
    if (!cache.empty())
        return true;
    const std::wstring file(kModuleResourceFile);
    const GlobalResourceScope scope(file.c_str());
    cache.resize(kNameRoom);
    LoadStringW(AfxGetResourceHandle(), id, cache.data(), static_cast<int>(kNameRoom));
    cache.resize(std::wcslen(cache.c_str()));
    return !cache.empty();
}
