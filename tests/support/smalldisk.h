// A disk of its own size that can be filled to its last byte: a file system in memory, mounted
// where only this process and those it starts see it.
#pragma once

#include <QByteArray>
#include <QString>

class SmallDisk
{
public:
    // Mounts it over an existing folder, whose files are hidden until the object goes.
    SmallDisk(const QString& folder, int kilobytes);
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk();

    // Whether this system let us mount it: as the superuser, or in a user namespace.
    [[nodiscard]] bool isMounted() const { return m_mounted; }

    // Takes all the room there is but so much, until `makeRoom`.
    [[nodiscard]] bool fill(int butKilobytes = 0) const;
    [[nodiscard]] bool makeRoom() const;

    // Nothing can be changed any more, whoever tries, until it is allowed again.
    // REQUIRES: no file of it is open for writing.
    [[nodiscard]] bool setReadOnly(bool readOnly) const;

private:
    [[nodiscard]] QByteArray ballast() const { return m_folder + "/ballast"; }

    const QByteArray m_folder;
    bool m_mounted = false;
};
