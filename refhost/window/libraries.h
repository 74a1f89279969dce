// Manners of the libraries of the window: they keep nothing of their own, change no texts, speak
// the session's language and have the pictures that they show.
#pragma once

#include <QString>

namespace quelhost {

// To be called before events are handled for the first time; later calls only change the language.
// `folder` is the profile's.
// REQUIRES: an application object.
void prepareLibraries(const QString& language, const QString& folder);

// Lets go of what the libraries wanted to keep for other runs. To be called when one of their parts
// may have noted something.
void dropLibraryState();

} // namespace quelhost
