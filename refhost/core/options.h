// The command line of the program.
#pragma once

#include "refhost/core/result.h"

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace quelhost {

struct Options
{
    enum class Task {
        Session,      // run the host
        ListSettings, // print the stored settings
        Check,        // check the named packages
        Help,         // print `text`
        Version,      // likewise
    };
    Task task = Task::Session;
    QString text;

    bool console = false; // asked for by name
    bool window = false;
    QString script; // a path, "-" for standard input, empty for none
    bool interactiveInput = false;
    QString profile; // empty for the default
    QStringList modules;
    std::vector<std::pair<QString, QString>> variables;
    QStringList supportFolders;
    QString language; // empty for the environment's
    bool reportStatus = false;
    QStringList files;
};

// Parses the arguments without the program's name. The fault says what is wrong with them.
[[nodiscard]] Result<Options> parseOptions(const QStringList& arguments);

// Just the value of --lang, for the texts of everything else that parsing may say.
[[nodiscard]] QString languageOption(const QStringList& arguments);

} // namespace quelhost
