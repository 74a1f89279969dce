// Boxes, file dialog, editors, settings, managers and crash recorder of the recording host.
#include "host/aliases.h"
#include "host/customization.h"
#include "host/editors.h"
#include "host/errors.h"
#include "host/filedialog.h"
#include "host/messageboxes.h"
#include "host/settings.h"

#include "tests/support/hostcode.h"
#include "tests/support/recordinghost.h"
#include "tests/support/tracetext.h"

using recording::hexadecimal;
using recording::host;
using recording::HostCode;
using recording::list;
using recording::MaybeText;
using recording::shown;

namespace {

// A failed call leaves everything as it was.
class RecordingConfig final : public QueldConfig
{
public:
    int getValue(Path category, const wchar_t* key, QuelVariant& value) override
    {
        const HostCode here;
        const auto found = host().settings.find(key);
        const int failure = host().readFailures.take();
        const bool succeeds = failure == 0 && found != host().settings.end();
        const int result = succeeds ? 0 : (failure != 0 ? failure : 1);
        host().called("getValue", list(shown(int{category}), shown(key)),
                      succeeds ? "0 " + shown(found->second) : shown(result));
        if (succeeds)
            value = found->second;
        return result;
    }

    int setValue(Path category, const wchar_t* key, const QuelVariant& value) override
    {
        const HostCode here;
        const int result = host().writeFailures.take();
        host().called("setValue", list(shown(int{category}), shown(key), shown(value)),
                      shown(result));
        if (result == 0)
            host().settings[key] = value;
        return result;
    }

    bool isItemExist(Path category, const wchar_t* section) override
    {
        const HostCode here;
        const bool result =
            host().sections.count(section) > 0 || host().settings.count(section) > 0;
        host().called("isItemExist", list(shown(int{category}), shown(section)), shown(result));
        return result;
    }

    int addItem(Path category, const wchar_t* section) override
    {
        const HostCode here;
        const int result = host().writeFailures.take();
        host().called("addItem", list(shown(int{category}), shown(section)), shown(result));
        if (result == 0)
            host().sections.insert(section);
        return result;
    }
};

class RecordingManager final : public QuelCustomizationManager
{
public:
    void refresh() override
    {
        const HostCode here;
        host().called("refresh", "");
    }

    bool loadMenuFile(const QuString& path, QuString& group) override
    {
        const HostCode here;
        const recording::LoadAnswer answer = host().loads.take();
        const std::string before = group.length() == 0 ? "empty" : shown(group);
        std::string result = shown(answer.loaded);
        if (answer.loaded)
            result += " " + (answer.group ? shown(*answer.group) : std::string("null"));
        host().called("loadMenuFile", list(shown(path), before), result);
        if (answer.loaded)
            group = answer.group ? QuString(answer.group->c_str()) : QuString();
        return answer.loaded;
    }
};

class RecordingApplication final : public QuelAppInterface
{
public:
    QuelCustomizationManager* customizationManager() override
    {
        const HostCode here;
        static RecordingManager manager;
        const bool isThere = host().managerIsThere.take();
        host().called("customizationManager", "", isThere ? "manager" : "null");
        return isThere ? &manager : nullptr;
    }
};

class RecordingAliases final : public QuCmdAliasManager
{
public:
    QuString getCurValidPgpFileName() override
    {
        const HostCode here;
        const MaybeText& file = host().aliasFile;
        const QuString result = file ? QuString(file->c_str()) : QuString();
        host().called("getCurValidPgpFileName", "", shown(result));
        return result;
    }
    void uninitAliasNameList() override
    {
        const HostCode here;
        host().called("uninitAliasNameList", "");
    }
    bool initAliasNameList(bool reread) override
    {
        const HostCode here;
        const bool result = host().aliasesRead.take();
        host().called("initAliasNameList", shown(reread), shown(result));
        return result;
    }
};

std::string shownParent(const CWnd* parent)
{
    return parent == nullptr ? "null" : "window";
}

class RecordingCrashRecorder final : public QuelCrashRecorder
{
public:
    void record(const VxErrorStatus* error) override
    {
        const HostCode here;
        host().called("record", "status " + shown(int{error->status()}));
        host().crashes.push_back({error, error->status(), error->context(), error->code(), {}});
    }
    void record(const VxExceptionWithMsg* error) override
    {
        const HostCode here;
        host().called("record", shown(error->message()));
        host().crashes.push_back({error, 0, error->context(), error->code(), error->message()});
    }
};

} // namespace

QueldConfig* quelConfig()
{
    const HostCode here;
    static RecordingConfig config;
    const bool isThere = host().storeIsThere.take();
    host().called("quelConfig", "", isThere ? "store" : "null");
    return isThere ? &config : nullptr;
}

QuelAppInterface* GetQuelAppInterface()
{
    const HostCode here;
    static RecordingApplication application;
    const bool isThere = host().applicationIsThere.take();
    host().called("GetQuelAppInterface", "", isThere ? "application" : "null");
    return isThere ? &application : nullptr;
}

QuCmdAliasManager* quCmdAliasManagerPtr()
{
    const HostCode here;
    static RecordingAliases aliases;
    const bool isThere = host().aliasManagerIsThere.take();
    host().called("quCmdAliasManagerPtr", "", isThere ? "manager" : "null");
    return isThere ? &aliases : nullptr;
}

int vxExcuteWSCommand(int editor, const wchar_t* reserved1, const wchar_t* reserved2)
{
    const HostCode here;
    const int result = host().editors.take();
    host().called("vxExcuteWSCommand", list(shown(editor), shown(reserved1), shown(reserved2)),
                  shown(result));
    return result;
}

int MessageBoxW(CWnd* parent, const wchar_t* text, const wchar_t* caption, unsigned int flags)
{
    const HostCode here;
    const int result = host().boxes.take();
    host().called("MessageBoxW",
                  list(shownParent(parent), shown(text), shown(caption), hexadecimal(flags)),
                  shown(result));
    return result;
}

int MessageBoxW(const wchar_t* text, const wchar_t* caption, unsigned int flags)
{
    const HostCode here;
    const int result = host().boxes.take();
    host().called("MessageBoxW", list(shown(text), shown(caption), hexadecimal(flags)),
                  shown(result));
    return result;
}

int AfxMessageBox(const wchar_t* text, unsigned int style, unsigned int helpContext)
{
    const HostCode here;
    const int result = host().boxes.take();
    host().called("AfxMessageBox", list(shown(text), hexadecimal(style), shown(helpContext)),
                  shown(result));
    return result;
}

CWnd* AfxGetMainWnd()
{
    const HostCode here;
    host().called("AfxGetMainWnd", "", shownParent(host().mainWindow));
    return host().mainWindow;
}

const wchar_t* GetOemProductName()
{
    const HostCode here;
    host().called("GetOemProductName", "", shown(host().productName));
    return host().productName.c_str();
}

int vxGetFileDialog(const wchar_t* title, const wchar_t* initialPath, const wchar_t* extensions,
                    int flags, resbuf* result, bool* reserved1, int& filterIndex,
                    const wchar_t* filters, const wchar_t* reserved2)
{
    const HostCode here;
    const recording::FileDialogAnswer answer = host().fileDialogs.take();
    const std::size_t line = host().trace.size();
    host().called("vxGetFileDialog", list(shown(title), shown(initialPath), shown(extensions),
                                          hexadecimal(static_cast<unsigned int>(flags)), "record",
                                          reserved1 == nullptr ? "null" : "bool",
                                          shown(filterIndex), shown(filters), shown(reserved2)));
    const int scripted = host().fileDialog ? host().fileDialog(*result, filterIndex) : 0;
    host().amend(line, " -> " + shown(host().fileDialog ? scripted : answer.status));
    if (host().fileDialog)
        return scripted;
    if (answer.status != QuelStatus::kNormal)
        return answer.status;
    result->type = QuelResultType::kString;
    result->value.string = answer.path ? host().newBuffer(*answer.path) : nullptr;
    for (int further = 0; further < answer.furtherResults; ++further) {
        auto* record = new resbuf{result->link, QuelResultType::kString, {}};
        record->value.string = host().newBuffer(L"further");
        result->link = record;
    }
    filterIndex = answer.filterIndex;
    return answer.status;
}

QuelCrashRecorder* quelGetCrashRecorder()
{
    const HostCode here;
    static RecordingCrashRecorder recorder;
    const bool isThere = host().recorderIsThere.take();
    host().called("quelGetCrashRecorder", "", isThere ? "recorder" : "null");
    return isThere ? &recorder : nullptr;
}
