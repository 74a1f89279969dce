#include "tests/support/testhost.h"

#include "refhost/core/widetext.h"
#include "tests/support/packagebuilder.h"

#include <deque>

namespace quelhost::test {

TestHost::TestHost(std::initializer_list<const wchar_t*> typedLines, const TestHostKind& kind)
    : settings(openStore(profile.path(), kind.access))
    , lines(output, typedLines, kind.typist)
{
    const HostSetup setup{*settings,
                          lines,
                          output,
                          QStringLiteral(QUEL_RESOURCES),
                          kind.language,
                          profile.file("QUELD.pgp"),
                          toWide(profile.file("QUELD")),
                          kind.searchFolders,
                          profile.path(),
                          kind.hasDisplay,
                          kind.reportStatus};
    host = std::make_unique<Host>(setup);
}

std::string TestHost::run()
{
    host->runSession();
    return output.take();
}

int TestHost::runPrepared(const char* name, std::initializer_list<const wchar_t*> answers)
{
    return host->runCommandLineOnly(QString::fromLatin1(name),
                                    std::deque<std::wstring>(answers.begin(), answers.end()));
}

std::wstring writePackage(const ScratchFolder& folder, const char* file, const QByteArray& group,
                          const QByteArray& inside)
{
    const QString path = folder.file(file);
    const QByteArray xml = "<customization format=\"1\"><menugroup name=\"" + group + "\">" +
                           inside + "</menugroup></customization>";
    return setBytes(path, packages::packageOf(xml)) ? toWide(path) : std::wstring();
}

std::vector<std::string> rowsOf(const std::string& text)
{
    std::vector<std::string> rows;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        rows.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return rows;
}

} // namespace quelhost::test
