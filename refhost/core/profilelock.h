// The hold of one running host on a profile folder.
//
// The lock belongs to the open file `lock` and not to the file's being there: the system gives it
// up when the holder ends, in whatever way, so nobody ever has to judge whether a left-over lock is
// still meant. The file itself stays and holds the holder's process number and program.
#pragma once

#include "refhost/core/filedescriptor.h"
#include "refhost/core/result.h"

#include <QString>

namespace quelhost {

class ProfileLock
{
public:
    // Takes the lock of an existing folder, to hold as long as the object lives.
    // Faults: Busy, with a sentence that names the holder; NotPermitted when the folder cannot be
    // written; Io.
    [[nodiscard]] static Result<ProfileLock> take(const QString& folder);

    ProfileLock(ProfileLock&&) noexcept = default;
    ProfileLock& operator=(ProfileLock&&) noexcept = default;

private:
    explicit ProfileLock(FileDescriptor file);

    FileDescriptor m_file;
};

} // namespace quelhost
