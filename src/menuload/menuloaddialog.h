// The menu load dialog: lists the loaded menu groups, loads and unloads customization files.
#pragma once

#include "host/dialogs.h"

class IQuelBuildInCommandContext;

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

// Shows the dialog, has the host refresh its menus when the dialog changed the list, and returns
// 5100 whatever the user did. MENULOAD and MENUUNLOAD share it.
int runMenuLoadDialog(IQuelBuildInCommandContext* context);
