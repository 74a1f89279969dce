// The host's dialog framework: dialogs and controls described by a user interface file, with an
// interface in the manner of the windows toolkits that commands were first written for.
//
// A dialog's controls are made by generateUICtrls from the description, owned by the dialog, and
// found by object name. Coordinates are pixels; a rectangle's right and bottom edge are left +
// width and top + height. The window rectangle of a dialog is its client area in screen
// coordinates, so moving it to the rectangle it reports leaves it where it is.
#pragma once

#include "host/api.h"
#include "host/cstdstr.h"

#include <QDialog>

#include <memory>

struct RECT
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

struct tagPOINT
{
    int x = 0;
    int y = 0;
};

// Limits of a window's size while the user drags its border.
struct tagMINMAXINFO
{
    tagPOINT ptMaxSize;
    tagPOINT ptMinTrackSize;
    tagPOINT ptMaxTrackSize;
};

// A window or control. Wraps a widget that it does not own; with no widget every operation does
// nothing and every answer is empty.
class QUEL_HOST_API CWnd
{
public:
    explicit CWnd(QWidget* widget = nullptr);
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // The widget, or null.
    QWidget* widget() const { return m_widget; }
    // Wraps another widget; null for none.
    void attach(QWidget* widget) { m_widget = widget; }

    // Enables or disables the control.
    void EnableWindow(bool enable);
    // The control's text: of a line edit what was typed, of a button or label its caption.
    void GetWindowText(CStdStr<wchar_t>& text) const;
    void SetWindowText(const wchar_t* text);
    // The rectangle in screen coordinates.
    void GetWindowRect(RECT* rect) const;
    // Moves a control to a rectangle in the client coordinates of its parent; `repaint` paints it.
    void MoveWindow(const RECT& rect, bool repaint);
    // Has the control painted again; `erase` paints its background as well.
    void Invalidate(bool erase);

private:
    QWidget* m_widget;
};

// A push button.
class QUEL_HOST_API CButton : public CWnd
{
public:
    CButton();
    ~CButton() override;
};

// A list of texts of which at most one is selected. Rows count from 0.
class QUEL_HOST_API CListBox : public CWnd
{
public:
    CListBox();
    ~CListBox() override;

    // Removes all rows.
    void ResetContent();
    // Adds a row at the end and returns its index, -1 on failure. The text is copied.
    int AddString(const wchar_t* text);
    int GetCount() const;
    // The selected row, -1 for none.
    int GetCurSel() const;
    // Selects a row, -1 for none; returns it, or -1 when there is no such row.
    int SetCurSel(int row);
    // Copies a row's text and returns its length, -1 when there is no such row.
    int GetText(int row, CStdStr<wchar_t>& text) const;
    // Removes a row and returns the number left, -1 when there is no such row. Removing the
    // selected row leaves no row selected.
    int DeleteString(int row);
};

// Passed to DoDataExchange; only hosts look inside.
class CDataExchange;

// Base of the host's dialogs.
class QUEL_HOST_API QuUiBaseDialog : public QDialog
{
    Q_OBJECT

public:
    explicit QuUiBaseDialog(QWidget* parent = nullptr);
    ~QuUiBaseDialog() override;

    // Shows the dialog, runs it until it is closed, and returns 1 for OK and 2 for anything else.
    // A dialog whose controls were not generated, and any dialog without a display, is not shown:
    // the host says so in one line and the result is -1. An exception out of a slot ends the dialog
    // and leaves this function.
    //
    // A dialog with an invokable slot OnSize(unsigned int type, int cx, int cy) is told its client
    // size through it: the designed one once before OnInitDialog, then each new one. `type` is 0.
    int DoModal();

protected:
    // Virtual functions in the order of their slots, behind those of QDialog. The order is part of
    // the binary contract.

    // Closes the dialog with the result 1.
    virtual void OnOK();
    // Called once before the dialog is shown, when its controls exist. The base exchanges data
    // (binds members), so members are bound when it returns. Returns true to let the host set the
    // focus.
    virtual bool OnInitDialog();
    // Binds members to controls with DDX_Control. Called by the base's OnInitDialog.
    virtual void DoDataExchange(CDataExchange* exchange);
    // Connects the controls' signals. The base wires IDOK to OnOK and IDCANCEL to the dialog's
    // reject() where they exist and are not connected yet. Virtual functions do not reach a derived
    // class from a constructor, so a derived constructor calls its own and then the base's.
    virtual void bindSingals();

    // Builds the controls from description `dialogName` of resource `resourceName`, with sizes and
    // texts in force when it returns. The options are 1, 0, 0. Returns whether it succeeded; the
    // user has been told what is wrong when it did not.
    [[nodiscard]] bool generateUICtrls(const wchar_t* dialogName, const wchar_t* resourceName,
                                       int option1, int option2, int option3);
    // Whether the controls were generated; set by the derived constructor.
    bool m_controlsGenerated = false;

    // The widget of the control of that name, or null. Owned by the dialog.
    QWidget* getWidgetsFromOrignal(const wchar_t* objectName) const;
    // Whether that control's signal has been connected already.
    bool CheckIfConnected(const wchar_t* objectName) const;
    // The control of that name, or null. Owned by the dialog, valid until it is destroyed.
    CWnd* GetDlgItem(const wchar_t* objectName) const;
    // Binds `member` to the control of that name.
    void DDX_Control(CDataExchange* exchange, const wchar_t* objectName, CWnd& member);

    // Over this dialog, as host/messageboxes.h tells.
    int MessageBoxW(const wchar_t* text, const wchar_t* caption, unsigned int flags);
    // The client area: left and top are 0.
    void GetClientRect(RECT* rect) const;
    // The client area in screen coordinates.
    void GetWindowRect(RECT* rect) const;
    // Moves and sizes the client area to a rectangle in screen coordinates.
    void MoveWindow(const RECT& rect, bool repaint);
    // Turns screen coordinates into client coordinates.
    void ScreenToClient(RECT* rect) const;

    void resizeEvent(QResizeEvent* event) override;

private:
    struct Private;
    const std::unique_ptr<Private> m_private;
};
