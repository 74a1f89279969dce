// What the built module shows to the process, what it needs from it, and what its sources include.
#include <gtest/gtest.h>

#include <cxxabi.h>
#include <dlfcn.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <stdexcept>

namespace {

using Texts = std::set<std::string>;

QString outputOf(const std::string& command)
{
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error("cannot run " + command);
    QByteArray output;
    char chunk[4096];
    for (std::size_t got = 0; (got = fread(chunk, 1, sizeof chunk, pipe)) > 0;)
        output.append(chunk, static_cast<int>(got));
    if (pclose(pipe) != 0)
        throw std::runtime_error("failed: " + command);
    return QString::fromUtf8(output);
}

QStringList linesOf(const QString& text)
{
    return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

std::string quoted(const char* path)
{
    return " '" + std::string(path) + "'";
}

QString dynamicSection()
{
    return outputOf(std::string(READELF_PROGRAM) + " -dW" + quoted(VXCUICMDS_PATH));
}

// A line of nm without its address: the letter of the kind, and the name.
struct Symbol
{
    char kind;
    std::string name;
    std::string version; // of a shared library's symbol; empty for none
};

std::vector<Symbol> symbols(const std::string& options)
{
    const QRegularExpression line(
        QStringLiteral("^[0-9a-f ]*\\b([A-Za-z]) ([^@]*[^@\\s])(?:@+(\\S+))?\\s*$"));
    std::vector<Symbol> result;
    const QString output =
        outputOf(std::string(NM_PROGRAM) + " -D " + options + quoted(VXCUICMDS_PATH));
    for (const QString& text : linesOf(output)) {
        const QRegularExpressionMatch match = line.match(text);
        if (!match.hasMatch())
            throw std::runtime_error("not understood: " + text.toStdString());
        result.push_back({match.captured(1).at(0).toLatin1(), match.captured(2).toStdString(),
                          match.captured(3).toStdString()});
    }
    return result;
}

QString textOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    return QString::fromUtf8(file.readAll());
}

// All of the host interface in one text, without comments.
QString hostInterface()
{
    QString all;
    QDirIterator files(QStringLiteral(MODULE_SOURCES "/host"), {QStringLiteral("*.h")});
    while (files.hasNext())
        all += textOf(files.next());
    all.remove(QRegularExpression(QStringLiteral("//[^\n]*")));
    return all;
}

QString demangled(const std::string& name)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status), &std::free);
    return QString::fromLatin1(status == 0 ? text.get() : name.c_str());
}

bool has(const QString& text, const QString& pattern)
{
    return text.contains(QRegularExpression(pattern));
}

// The body of an exported class; empty when there is none of that name.
QString exportedClass(const QString& interface, const QString& name)
{
    const QRegularExpression body(QStringLiteral("\\bclass QUEL_HOST_API %1\\b.*?\n\\};").arg(name),
                                  QRegularExpression::DotMatchesEverythingOption);
    return body.match(interface).captured(0);
}

bool declaresFunction(const QString& text, const QString& name)
{
    return has(text,
               QStringLiteral("(?<![A-Za-z0-9_.>])%1\\(").arg(QRegularExpression::escape(name)));
}

// Whether the host interface declares `symbol`: a member or the data of an exported class, or an
// exported function.
bool isDeclared(const QString& interface, QString symbol)
{
    const QRegularExpression classData(QStringLiteral("^(vtable|typeinfo|typeinfo name) for "));
    const bool isClassData = has(symbol, classData.pattern());
    symbol.remove(classData);
    symbol.remove(QRegularExpression(QStringLiteral("\\(.*$")));
    const QStringList parts = symbol.split(QStringLiteral("::"));
    const QString name = parts.last();
    if (isClassData)
        return !exportedClass(interface, name).isEmpty();
    if (parts.size() == 1)
        return has(
            interface,
            QStringLiteral("QUEL_HOST_API [^;{(]*\\b%1\\(").arg(QRegularExpression::escape(name)));
    const QString body = exportedClass(interface, parts.first());
    const QStringList ofMetaObject{QStringLiteral("staticMetaObject"), QStringLiteral("metaObject"),
                                   QStringLiteral("qt_metacast"), QStringLiteral("qt_metacall")};
    return ofMetaObject.contains(name) ? has(body, QStringLiteral("\\bQ_OBJECT\\b"))
                                       : declaresFunction(body, name);
}

// Whether a sanitizer's library defines `name`; in a build for users there is none. This program is
// built like the module, so it has the same libraries.
bool isOfASanitizer(const std::string& name)
{
    Dl_info found{};
    void* const symbol = dlsym(RTLD_DEFAULT, name.c_str());
    if (symbol == nullptr || dladdr(symbol, &found) == 0)
        return false;
    return has(QString::fromUtf8(found.dli_fname), QStringLiteral("/lib(asan|ubsan|tsan)\\.so"));
}

bool isLibraryVersion(const std::string& version)
{
    for (const char* prefix : {"GLIBC_", "GLIBCXX_", "CXXABI_", "GCC_"}) {
        if (version.rfind(prefix, 0) == 0)
            return true;
    }
    return version == "Qt_5" || version == "Qt_5.15";
}

struct Include
{
    QString file;     // below the sources
    QString included; // between the brackets or quotes
    bool quoted;
};

std::vector<Include> includes()
{
    const QRegularExpression line(QStringLiteral("^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"]"),
                                  QRegularExpression::MultilineOption);
    const QString root = QStringLiteral(MODULE_SOURCES "/");
    std::vector<Include> result;
    QDirIterator files(root, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        QRegularExpressionMatchIterator matches = line.globalMatch(textOf(path));
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            result.push_back({path.mid(root.size()), match.captured(2),
                              match.captured(1) == QLatin1String("\"")});
        }
    }
    return result;
}

// Standard headers have neither a suffix nor a capital letter; those of the system have a suffix.
bool isStandardOrQt(const QString& header)
{
    return has(header, QStringLiteral("^[a-z_]+$")) || has(header, QStringLiteral("^Q[A-Za-z]+$"));
}

} // namespace

TEST(Symbols, ShowsItsEntryPointItsPublicFunctionsAndItsStreamsOnly)
{
    Texts names;
    for (const Symbol& symbol : symbols("--defined-only --demangle"))
        names.insert(symbol.name);
    Texts expected{"GetQuelCmdApplication",
                   "IsRunAsCmdLineCommand()",
                   "IsSupportMenuExt(CStdStr<wchar_t> const&)",
                   "MenuLoadReplaceAll(CStdStr<wchar_t> const&)",
                   "getMenuFilePathByCmd(CStdStr<wchar_t>&)",
                   "getMenuFilePathByDialog(CStdStr<wchar_t>&, CStdStr<wchar_t> const&)",
                   "getMenuFullPath(IQuelBuildInCommandContext*, CStdStr<wchar_t> const&, "
                   "CStdStr<wchar_t>&)",
                   "qumdQuResourceString(unsigned int)",
                   "vtable for VxStreamBuf",
                   "typeinfo for VxStreamBuf",
                   "typeinfo name for VxStreamBuf"};
    for (const char* member :
         {"~VxStreamBuf()",
          "isEOS() const",
          "setlength(unsigned long)",
          "truncate()",
          "rewind()",
          "readBytes(VxStreamBuf*, unsigned int)",
          "writeBytes(VxStreamBuf*, unsigned int)",
          "copyFrom(VxStreamBuf*, unsigned long, unsigned long)",
          "copyTo(VxStreamBuf*, unsigned long, unsigned long)",
          "currentStreamBufPosition() const",
          "getByteByPos(VxStreamBufPos const&)",
          "setByteByPos(VxStreamBufPos const&, unsigned char)",
          "getBytesByPos(VxStreamBufPos const&, unsigned char*, unsigned int)",
          "getBytesByPos(VxStreamBufPos const&, VxStreamBuf*, unsigned int)",
          "setBytesByPos(VxStreamBufPos const&, unsigned char const*, unsigned int)",
          "setBytesByPos(VxStreamBufPos const&, VxStreamBuf*, unsigned int)",
          "getStreamPosition(VxStreamBufPos const*) const",
          "setStreamPosition(VxStreamBufPos*, unsigned long) const",
          "moveStreamPosition(VxStreamBufPos*, long) const",
          "getBytes(unsigned char*, unsigned int)"})
        expected.insert(std::string("VxStreamBuf::") + member);
    const std::string vector = "VxVector<int, VxDefaultMemAllocator<int>, VxRefCounter, "
                               "VxVectorDefaultGrowPolicy>";
    for (const std::string& member :
         {std::string("VxVector(int const*, unsigned long)"), "VxVector(" + vector + " const&)",
          "VxVector(" + vector + "&&)", "operator=(" + vector + ")", std::string("~VxVector()"),
          std::string("size() const"), std::string("data() const"),
          std::string("append(int const&)"),
          std::string("makeBlock(int const*, unsigned long, unsigned long)")})
        expected.insert(vector + "::" + member);
    EXPECT_EQ(names, expected);
}

// A function of a template is a weak one, and so are the tables of a class.
TEST(Symbols, ShowsFunctionsAndTheTablesOfItsClassOnly)
{
    for (const Symbol& symbol : symbols("--defined-only --demangle")) {
        const QString name = QString::fromStdString(symbol.name);
        const bool isTable = has(name, QStringLiteral("^(vtable|typeinfo|typeinfo name) for "));
        const bool isOfTemplate = has(name, QStringLiteral("^VxVector<"));
        const std::string kinds = isTable ? "VDR" : isOfTemplate ? "W" : "T";
        EXPECT_NE(kinds.find(symbol.kind), std::string::npos) << symbol.kind << " " << symbol.name;
    }
}

TEST(Symbols, HasNothingThatPinsItInTheProcess)
{
    for (const Symbol& symbol : symbols(""))
        EXPECT_NE(symbol.kind, 'u') << symbol.name;
    for (const Symbol& symbol : symbols("--undefined-only"))
        EXPECT_EQ(symbol.name.rfind("__cxa_thread_atexit", 0), std::string::npos);
    EXPECT_FALSE(dynamicSection().contains(QLatin1String("NODELETE")));
}

TEST(Symbols, NeedsOnlyLibrariesAndTheHostInterface)
{
    const QString interface = hostInterface();
    const Texts ofTheTools{"__gmon_start__", "_ITM_deregisterTMCloneTable",
                           "_ITM_registerTMCloneTable"};
    int ofTheHost = 0;
    for (const Symbol& symbol : symbols("--undefined-only")) {
        if (isLibraryVersion(symbol.version) || isOfASanitizer(symbol.name))
            continue;
        EXPECT_EQ(symbol.version, "") << symbol.name << " of an unexpected library";
        if (symbol.kind == 'w' && ofTheTools.count(symbol.name) > 0)
            continue;
        const QString name = demangled(symbol.name);
        EXPECT_TRUE(isDeclared(interface, name)) << name.toStdString();
        ++ofTheHost;
    }
    EXPECT_GT(ofTheHost, 20);
}

TEST(Symbols, TheInterfaceIsSearchedForWholeDeclarations)
{
    const QString interface = hostInterface();
    for (const char* declared : {"LoadStringW(QuelResource const*, unsigned int, wchar_t*, int)",
                                 "QuString::length() const", "vtable for QuUiBaseDialog",
                                 "QuUiBaseDialog::~QuUiBaseDialog()",
                                 "QuUiBaseDialog::staticMetaObject", "typeinfo for VxErrorStatus"})
        EXPECT_TRUE(isDeclared(interface, QLatin1String(declared))) << declared;
    for (const char* other :
         {"LoadString(int)", "length()", "QuString::size() const", "vtable for QuelVariant",
          "QuelHost::length()", "QuString::staticMetaObject", "main", "quelConfig::reset()"})
        EXPECT_FALSE(isDeclared(interface, QLatin1String(other))) << other;
}

TEST(Symbols, NeedsTheseLibrariesAtMost)
{
    const QRegularExpression needed(QStringLiteral("\\(NEEDED\\)[^\\[]*\\[([^.\\]]+)"));
    Texts libraries;
    for (const QString& line : linesOf(dynamicSection())) {
        const QRegularExpressionMatch match = needed.match(line);
        if (match.hasMatch())
            libraries.insert(match.captured(1).toStdString());
    }
    EXPECT_EQ(libraries.count("libQt5Core"), 1U);
    for (const char* allowed :
         {"libQt5Core", "libQt5Gui", "libQt5Widgets", "libstdc++", "libgcc_s", "libc", "libm"})
        libraries.erase(allowed);
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    for (const char* ofTheChecks : {"libasan", "libubsan", "libtsan"})
        libraries.erase(ofTheChecks);
#endif
    EXPECT_EQ(libraries, Texts{});
}

TEST(Sources, IncludeNothingOfTheReferenceHost)
{
    const std::vector<Include> all = includes();
    EXPECT_GT(all.size(), 40U);
    for (const Include& include : all)
        EXPECT_FALSE(include.included.contains(QLatin1String("refhost")))
            << include.file.toStdString();
}

TEST(Sources, ReachTheHostThroughItsInterfaceOnly)
{
    for (const Include& include : includes()) {
        const QString folders = include.file.startsWith(QLatin1String("host/"))
                                    ? QStringLiteral("^host/[a-z]+\\.h$")
                                    : QStringLiteral("^(host|module|menufile|menuload|commands|"
                                                     "settings|stream)/[a-z]+\\.h$");
        const bool allowed =
            include.quoted ? has(include.included, folders) : isStandardOrQt(include.included);
        EXPECT_TRUE(allowed) << include.file.toStdString() << " includes "
                             << include.included.toStdString();
    }
}
