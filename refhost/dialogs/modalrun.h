// Running dialogs so that an exception out of a slot reaches who runs them.
#pragma once

#include <QApplication>
#include <QDialog>

namespace quelhost {

// The application object of a host with dialogs. The toolkit cannot carry an exception through a
// dialog's event loop; this catches it at the event and hands it to the dialog that runs.
//
// A session does not end with its last window: the toolkit would close every later dialog at once.
class HostApplication final : public QApplication
{
public:
    HostApplication(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

// Shows `dialog` modally until it is closed and returns its result. An exception out of an event
// handler or slot, while no further dialog runs on top, closes the dialog and leaves this function.
// REQUIRES: the application object is a HostApplication.
int runModal(QDialog& dialog);

} // namespace quelhost
