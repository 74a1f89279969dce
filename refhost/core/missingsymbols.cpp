#include "refhost/core/missingsymbols.h"

#include <QByteArray>
#include <QFile>

#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <dlfcn.h>
#include <elf.h>
#include <link.h>
#include <memory>
#include <vector>

namespace quelhost {

namespace {

constexpr char kUndefined[] = "undefined symbol: ";

using Header = ElfW(Ehdr);
using Section = ElfW(Shdr);
using Symbol = ElfW(Sym);
using Entry = ElfW(Dyn);

// A library file. Every access is checked against the file's size: a broken file yields nothing.
class ElfFile
{
public:
    explicit ElfFile(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {}

    // All records of type T in the sections of `type`, with the string table that they refer to.
    template<typename T, typename Visit>
    void forEach(unsigned int type, Visit visit) const
    {
        for (const Section& section : sections()) {
            if (section.sh_type != type)
                continue;
            for (std::size_t at = 0; at + sizeof(T) <= section.sh_size; at += sizeof(T)) {
                T record;
                if (!read(section.sh_offset + at, &record, sizeof record))
                    break;
                visit(record, section.sh_link);
            }
        }
    }

    // The string at `offset` of string table section `table`.
    QByteArray string(unsigned int table, std::size_t offset) const
    {
        const std::vector<Section> all = sections();
        if (table >= all.size() || offset >= all[table].sh_size)
            return {};
        const std::size_t begin = all[table].sh_offset + offset;
        const auto size = static_cast<std::size_t>(m_bytes.size());
        if (begin >= size)
            return {};
        return QByteArray(m_bytes.constData() + begin,
                          static_cast<int>(strnlen(m_bytes.constData() + begin, size - begin)));
    }

private:
    bool read(std::size_t offset, void* target, std::size_t size) const
    {
        const auto available = static_cast<std::size_t>(m_bytes.size());
        if (offset > available || size > available - offset)
            return false;
        std::memcpy(target, m_bytes.constData() + offset, size);
        return true;
    }

    std::vector<Section> sections() const
    {
        Header header;
        if (!read(0, &header, sizeof header) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0)
            return {};
        std::vector<Section> result;
        for (std::size_t i = 0; i < header.e_shnum; ++i) {
            Section section;
            if (read(header.e_shoff + i * sizeof section, &section, sizeof section))
                result.push_back(section);
        }
        return result;
    }

    const QByteArray m_bytes;
};

QString readable(const QByteArray& symbol)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(symbol.constData(), nullptr, nullptr, &status), &std::free);
    return QString::fromUtf8(name ? name.get() : symbol.constData());
}

struct CloseLibrary
{
    void operator()(void* library) const { dlclose(library); }
};
using Library = std::unique_ptr<void, CloseLibrary>;

// The libraries that `file` is linked with, as far as they can be loaded.
std::vector<Library> neededLibraries(const ElfFile& file)
{
    std::vector<Library> libraries;
    file.forEach<Entry>(SHT_DYNAMIC, [&](const Entry& entry, unsigned int strings) {
        if (entry.d_tag != DT_NEEDED)
            return;
        const QByteArray name = file.string(strings, entry.d_un.d_val);
        Library library(dlopen(name.constData(), RTLD_LAZY | RTLD_LOCAL));
        if (library)
            libraries.push_back(std::move(library));
    });
    return libraries;
}

bool isDefined(const QByteArray& symbol, const std::vector<Library>& libraries)
{
    if (dlsym(RTLD_DEFAULT, symbol.constData()) != nullptr)
        return true;
    for (const Library& library : libraries) {
        if (dlsym(library.get(), symbol.constData()) != nullptr)
            return true;
    }
    return false;
}

} // namespace

QStringList missingSymbols(const char* path, const QString& loaderMessage)
{
    const int named = loaderMessage.indexOf(QLatin1String(kUndefined));
    if (named < 0)
        return {};
    // Behind the name a version may follow: ", version NAME".
    const QString first = loaderMessage.mid(named + static_cast<int>(std::strlen(kUndefined)));
    const QString name = first.section(QLatin1Char(' '), 0, 0).section(QLatin1Char(','), 0, 0);
    QStringList names{readable(name.toUtf8())};

    QFile source(QFile::decodeName(path));
    if (!source.open(QIODevice::ReadOnly))
        return names;
    const ElfFile file(source.readAll());
    const std::vector<Library> libraries = neededLibraries(file);
    file.forEach<Symbol>(SHT_DYNSYM, [&](const Symbol& symbol, unsigned int strings) {
        const bool needed =
            symbol.st_shndx == SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) == STB_GLOBAL;
        const QByteArray symbolName = needed ? file.string(strings, symbol.st_name) : QByteArray();
        if (!symbolName.isEmpty() && !isDefined(symbolName, libraries))
            names << readable(symbolName);
    });
    names.removeDuplicates();
    return names;
}

} // namespace quelhost
