// The menu load dialog: lists the loaded menu groups, loads and unloads customization files.
#pragma once

#include "host/dialogs.h"

class IQuelBuildInCommandContext;

// Where the dialog stood when it was last closed by OK, in screen pixels.
struct tagMenuloadDlgParam
{
    int X;
    int Y;
    int WIDTH;
    int HEIGHT;
};

// The dialog edits the loaded menu file list only; who shows it has the host refresh its menus when
// the changed flag says so.
class VxMenuLoadDlg final : public QuUiBaseDialog
{
    Q_OBJECT

public:
    // REQUIRES: `context` outlives the dialog. `parent` may be null.
    VxMenuLoadDlg(IQuelBuildInCommandContext* context, CWnd* parent);
    ~VxMenuLoadDlg() override;

    // Whether the dialog has loaded or unloaded a file. Never goes back while the dialog lives.
    bool isChanged() const { return m_changed != 0; }

    // Fills the list with the base names of the loaded files that exist, and selects the first.
    void UpdateMenuGroupList();

    // Reads the stored placement into `param`: a field whose value cannot be read stays as it was,
    // one of another kind than integer becomes 0. Returns 0 when the placement may be used; -1 when
    // there is none, or it is smaller than the dialog was designed or lies left of or above the
    // screen's origin.
    [[nodiscard]] int GetMenuLoadDlgSize(tagMenuloadDlgParam& param);
    // Stores a placement.
    void SetMenuLoadDlgSize(tagMenuloadDlgParam param);

    // Grow a control by a difference, or repaint it where it stands. `control` is a row of the
    // layout table in menuloaddialoglayout.cpp, which knows its object name; a row that the table
    // does not have, or whose control the dialog does not have, does nothing.
    void ResizeControl(int control, int dx, int dy) const;
    // The differences are not applied, on purpose: where a control that is only moved ends up is
    // the business of the host's own layout.
    void MoveControl(int control, int dx, int dy) const;

public slots:
    // The order of the slots is their index in the meta-object.
    void OnOK() override;
    void OnBtnUnLoadMenu();
    void OnBtnLoadMenu();
    void OnBtnBrowse();
    void OnHelp();
    void OnMenuPathChange();
    void OnGetMinMaxInfo(tagMINMAXINFO* info);
    void OnSize(unsigned int type, int cx, int cy);

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;

private:
    void restorePlacement();
    CStdStr<wchar_t> typedPath() const;
    void enableLoadFor(const std::wstring& path);

    CButton m_load;
    CListBox m_groups;
    CButton m_unload;
    int m_minimumWidth = 0;
    int m_minimumHeight = 0;
    int m_lastWidth = 0;
    int m_lastHeight = 0;
    int m_firstSize = 1;
    int m_changed = 0;
    IQuelBuildInCommandContext* m_context;
};

// Whether a command is to show the dialog: the host allows dialogs in this run and FILEDIA is 1.
// Both questions are put to the host every time.
[[nodiscard]] bool menuLoadDialogWanted(IQuelBuildInCommandContext* context);

// Shows the dialog, has the host refresh its menus when the dialog changed the list, and returns
// 5100 whatever the user did. MENULOAD and MENUUNLOAD share it.
int runMenuLoadDialog(IQuelBuildInCommandContext* context);
