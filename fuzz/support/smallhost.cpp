#include "fuzz/support/smallhost.h"

#include "fuzz/support/broken.h"

#include "host/filedialog.h"
#include "host/messageboxes.h"
#include "host/output.h"
#include "host/prompts.h"
#include "host/resources.h"
#include "host/settings.h"
#include "host/variables.h"

#include <algorithm>
#include <cwchar>

using fuzzing::mustHold;
using fuzzing::smallHost;

namespace {

constexpr wchar_t kSection[] = L"UserInterfaceSettings\\Select Menu File";
constexpr wchar_t kFilter[] = L"UserInterfaceSettings\\Select Menu File\\InitialFilterIndex";
constexpr wchar_t kFile[] = L"UserInterfaceSettings\\Select Menu File\\InitialDirectory";

wchar_t* newBuffer(const std::wstring& text)
{
    ++smallHost().handedOut;
    auto* const buffer = static_cast<wchar_t*>(std::calloc(text.size() + 1, sizeof(wchar_t)));
    text.copy(buffer, text.size());
    return buffer;
}

void giveBack(void* buffer)
{
    if (buffer != nullptr)
        --smallHost().handedOut;
    std::free(buffer);
}

class Config final : public QueldConfig
{
public:
    int getValue(Path, const wchar_t* key, QuelVariant& value) override
    {
        const QuelVariant& stored = valueOf(key);
        if (stored.type() == QuelVariant::kNone)
            return 1;
        value = stored;
        return 0;
    }

    int setValue(Path, const wchar_t* key, const QuelVariant& value) override
    {
        mustHold(smallHost().hasSection, "a section is made before its values");
        valueOf(key) = value;
        return 0;
    }

    bool isItemExist(Path, const wchar_t* section) override
    {
        mustHold(std::wcscmp(section, kSection) == 0, "the section asked for is the dialog's");
        return smallHost().hasSection;
    }

    int addItem(Path, const wchar_t* section) override
    {
        mustHold(std::wcscmp(section, kSection) == 0, "the section made is the dialog's");
        smallHost().hasSection = true;
        return 0;
    }

private:
    static QuelVariant& valueOf(const wchar_t* key)
    {
        const bool isFilter = std::wcscmp(key, kFilter) == 0;
        mustHold(isFilter || std::wcscmp(key, kFile) == 0, "the values are the dialog's");
        return isFilter ? smallHost().storedFilter : smallHost().storedFile;
    }
};

} // namespace

fuzzing::SmallHost& fuzzing::smallHost()
{
    static SmallHost host;
    return host;
}

QuelCrashRecorder* quelGetCrashRecorder()
{
    return nullptr;
}

QueldConfig* quelConfig()
{
    static Config config;
    return &config;
}

bool SetCurrentResourceName(const wchar_t* name)
{
    smallHost().resources.emplace_back(name);
    return true;
}

void RestorePreviousResource()
{
    smallHost().resources.pop_back();
}

QuelResourceHandle AfxGetResourceHandle()
{
    return nullptr;
}

int LoadStringW(QuelResourceHandle, unsigned int, wchar_t* buffer, int)
{
    buffer[0] = L'\0';
    return 0;
}

QuString qumdQuResourceString(unsigned int id, const wchar_t* defaultText)
{
    constexpr unsigned int kKinds = 11005;
    if (id != kKinds || !smallHost().kinds)
        return QuString(defaultText);
    return *smallHost().kinds ? QuString((*smallHost().kinds)->c_str()) : QuString();
}

bool quedScriptAppRunning()
{
    return smallHost().scriptRuns;
}

QuelDocumentData* GetQuelAppCtxActiveDocData()
{
    static QuelDocumentData data{};
    data.flags = smallHost().noDialogs ? QuelDocumentData::kNoDialogs : 0;
    return &data;
}

int quedInitGet(int, const wchar_t*)
{
    return QuelStatus::kNormal;
}

int quedGetString(int, const wchar_t* prompt, wchar_t* answer)
{
    smallHost().prompt = prompt;
    // All of the room, and no more than that.
    std::fill_n(answer, kQuelStringAnswerRoom, L'#');
    answer[smallHost().answer.copy(answer, kQuelStringAnswerRoom - 1)] = L'\0';
    return smallHost().promptStatus;
}

int quedGetVar(const wchar_t* name, resbuf* result)
{
    if (std::wcscmp(name, L"FILEDIA") == 0) {
        result->type = QuelResultType::kShort;
        result->value.shortInteger = smallHost().fileDialogs ? 1 : 0;
        return QuelStatus::kNormal;
    }
    if (!smallHost().menuName)
        return QuelStatus::kError;
    result->type = QuelResultType::kString;
    result->value.string = *smallHost().menuName ? newBuffer(**smallHost().menuName) : nullptr;
    return QuelStatus::kNormal;
}

void quutDelBuffer(void*& buffer)
{
    giveBack(buffer);
    buffer = nullptr;
}

void quutRelRb(resbuf* chain)
{
    while (chain != nullptr) {
        resbuf* const next = chain->link;
        giveBack(chain->value.string);
        delete chain;
        chain = next;
    }
}

void quutPrintf(const wchar_t* text)
{
    smallHost().printed += text;
}

const wchar_t* GetOemProductName()
{
    return L"Drafting Desk";
}

CWnd* AfxGetMainWnd()
{
    return nullptr;
}

int MessageBoxW(CWnd*, const wchar_t*, const wchar_t*, unsigned int)
{
    ++smallHost().boxes;
    return smallHost().boxAnswer;
}

int vxGetFileDialog(const wchar_t*, const wchar_t* initialPath, const wchar_t* extensions, int,
                    resbuf* result, bool*, int& filterIndex, const wchar_t*, const wchar_t*)
{
    const std::optional<std::wstring> kinds =
        extensions == nullptr ? std::nullopt : std::optional<std::wstring>(extensions);
    smallHost().dialogs.push_back({initialPath, kinds, filterIndex});
    if (smallHost().dialogStatus != QuelStatus::kNormal)
        return smallHost().dialogStatus;
    result->type = QuelResultType::kString;
    result->value.string = newBuffer(smallHost().picked);
    for (int further = 0; further < smallHost().furtherResults; ++further) {
        auto* const record = new resbuf{result->link, QuelResultType::kString, {}};
        record->value.string = newBuffer(L"further");
        result->link = record;
    }
    filterIndex = smallHost().pickedFilter;
    return QuelStatus::kNormal;
}
