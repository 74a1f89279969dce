// What the dialogs ask of a host, answered by the tests and noted.
#pragma once

#include "refhost/core/face.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class QWidget;

namespace dialogtest {

struct Services
{
    bool hasDisplay = true;
    QString resourceFolder = QStringLiteral(QUEL_RESOURCES);
    QString language = QStringLiteral("en");
    QWidget* windowBehind = nullptr;
    // The answer of a message box over a dialog; without one it is 2, as for Esc.
    std::function<int(const quelhost::BoxRequest& request)> askBox;

    // What was asked and told.
    std::vector<quelhost::BoxRequest> boxes;
    QStringList sentences;
    QStringList helpPages;
};

// The services of the test that runs; each test begins with new ones.
Services& services();
void resetServices();

} // namespace dialogtest
