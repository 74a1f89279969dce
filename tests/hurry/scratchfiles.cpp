#include "tests/hurry/scratchfiles.h"

#include "refhost/core/widetext.h"
#include "tests/support/packagebuilder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace hurry {

namespace {

constexpr const char* kFolders[] = {"", "a/", "b/", "c d/", "\xC3\xA9\xF0\x9F\x98\x80/"};

// With the end that a loadable file has and with others; several have the same base name in capital
// letters, among them those whose capital letters are more in number.
constexpr const char* kNames[] = {"plant.cuix",
                                  "PLANT.CUIX",
                                  "Plant.v2.cuix",
                                  "survey.Cuix",
                                  "stra\xC3\x9F"
                                  "e.cuix",
                                  "STRASSE.cuix",
                                  "\xF0\x9F\x98\x80.cuix",
                                  "\xC3\xA9t\xC3\xA9.cuix",
                                  "100%s%n%ls.cuix",
                                  "it;s.cuix",
                                  "two words.cuix",
                                  "q'u.cuix",
                                  "QUELD.cuix",
                                  "queld.old.cuix",
                                  ".cuix",
                                  "xcuix",
                                  "\xEF\xBB\xBFmark.cuix",
                                  "~home.cuix",
                                  "notes.txt",
                                  "plant.cui",
                                  "plant.mnu"};
constexpr std::size_t kOthers = 3; // at the end, which MENULOAD does not take

std::string package(const std::string& group)
{
    const QByteArray xml = "<customization format=\"1\"><menugroup name=\"" +
                           QByteArray::fromStdString(group) +
                           "\"><commands><command id=\"c\" text=\"C\" macro=\"ECHO c\"/></commands>"
                           "<menus><menu id=\"m\" text=\"M " +
                           QByteArray::fromStdString(group) +
                           "\"><item command=\"c\"/></menu></menus></menugroup></customization>";
    return packages::packageOf(xml).toStdString();
}

std::string joined(const std::string& folder, const std::string& name)
{
    return folder + '/' + name;
}

} // namespace

ScratchFiles::ScratchFiles(std::string folder, std::string profile, std::string mainPackage)
    : m_folder(std::move(folder))
    , m_profile(std::move(profile))
    , m_contents{mainPackage}
{
    m_groups[mainPackage] = L"QUELD";
    for (int number = 0; number < 8; ++number) {
        const std::string group = "G" + std::to_string(number);
        m_contents.push_back(package(group));
        m_groups[m_contents.back()] = quelhost::fromUtf8(group);
    }
    m_contents.push_back(m_contents.back().substr(0, 60));
    m_contents.emplace_back();
    m_contents.emplace_back("no package");
    for (const char* const where : kFolders) {
        std::filesystem::create_directories(joined(m_folder, where));
        for (const char* const name : kNames)
            m_names.push_back(std::string(where) + name);
    }
    std::filesystem::create_directory_symlink("a", joined(m_folder, "link"));
    Random random(1);
    for (std::size_t i = 0; i < m_names.size(); ++i)
        put(m_names[i], random.of(m_contents));
}

ScratchFiles::~ScratchFiles()
{
    for (const std::string& name : m_names)
        remove(name);
}

std::optional<std::wstring> ScratchFiles::groupOf(const std::wstring& path) const
{
    const std::string name = quelhost::toUtf8(path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(name, error))
        return std::nullopt;
    std::ifstream file(name, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    const auto group = m_groups.find(content);
    return group == m_groups.end() ? std::nullopt : std::optional(group->second);
}

void ScratchFiles::put(const std::string& name, const std::string& content) const
{
    remove(name);
    std::ofstream(joined(m_folder, name), std::ios::binary) << content;
}

void ScratchFiles::remove(const std::string& name) const
{
    std::error_code error;
    std::filesystem::remove(joined(m_folder, name), error);
}

std::string ScratchFiles::changeMainFile(Random& random)
{
    if (std::filesystem::exists(mainFile())) {
        if (!random.percent(1))
            return {};
        std::filesystem::remove(mainFile());
        return "(the main file goes)";
    }
    if (random.percent(80))
        return {};
    std::ofstream(mainFile(), std::ios::binary) << m_contents.front();
    return "(the main file is there again)";
}

std::string ScratchFiles::change(Random& random)
{
    const std::string& name = random.of(m_names);
    const std::string whole = joined(m_folder, name);
    switch (random.below(20)) {
    case 0:
        remove(name);
        ::mkdir(whole.c_str(), 0700);
        return "(a folder: " + name + ")";
    case 1:
        remove(name);
        ::mkfifo(whole.c_str(), 0600);
        return "(a pipe: " + name + ")";
    case 2:
        ::chmod(whole.c_str(), 0);
        return "(may not be read: " + name + ")";
    case 3:
        remove(name);
        std::filesystem::create_symlink(random.of(kNames), whole);
        return "(a link: " + name + ")";
    case 4:
    case 5:
    case 6:
    case 7:
    case 8:
        remove(name);
        return "(goes: " + name + ")";
    default:
        put(name, random.of(m_contents));
        return "(comes: " + name + ")";
    }
}

std::string ScratchFiles::path(Random& random) const
{
    return random.percent(2) ? mainFile() : spelled(random, random.of(m_names));
}

std::string ScratchFiles::loadablePath(Random& random) const
{
    constexpr std::size_t kLoadable = std::size(kNames) - kOthers;
    return spelled(random, std::string(random.of(kFolders)) + kNames[random.below(kLoadable)]);
}

std::string ScratchFiles::spelled(Random& random, const std::string& name) const
{
    switch (random.below(8)) {
    case 0:
        return name;
    case 1:
        return "./" + name;
    case 2:
        return m_folder + "//" + name;
    case 3:
        return joined(m_folder, name.rfind("a/", 0) == 0 ? "link" + name.substr(1) : name);
    default:
        return joined(m_folder, name);
    }
}

} // namespace hurry
