// Makes customization packages in memory, good ones and such as nobody should open.
//
// The library writes a proper archive; what no library would write is changed in the finished
// bytes afterwards, with the functions below.
#pragma once

#include <QByteArray>
#include <QString>

#include <string>
#include <vector>

namespace packages {

enum class Packing { Store, Deflate, Bzip2 };

class PackageBuilder
{
public:
    PackageBuilder& add(const std::string& name, const QByteArray& bytes,
                        Packing packing = Packing::Deflate);
    // Kind and permissions of the entry added last, as a Unix packer states them.
    PackageBuilder& unixMode(quint32 mode);
    // Encrypts the entry added last in the traditional way.
    PackageBuilder& encrypt();

    // The archive; empty when the library refuses to write it.
    [[nodiscard]] QByteArray build() const;

private:
    struct Entry
    {
        std::string name;
        QByteArray bytes;
        Packing packing;
        quint32 mode = 0100644;
        bool encrypted = false;
    };

    std::vector<Entry> m_entries;
};

// The smallest good customization.xml; `inside` goes into its menu group.
[[nodiscard]] QByteArray customization(const QByteArray& inside = {});

// A package of that text alone.
[[nodiscard]] QByteArray packageOf(const QByteArray& customizationXml);

// A good png of that size.
[[nodiscard]] QByteArray png(int width, int height);

// A chunk of a png, with its checksum.
[[nodiscard]] QByteArray pngChunk(const QByteArray& name, const QByteArray& content);

// Where the record of the entry stands in the table of contents, and where the entry's own header.
[[nodiscard]] int centralRecord(const QByteArray& archive, int index);
[[nodiscard]] int localHeader(const QByteArray& archive, int index);

// Where the end record stands.
[[nodiscard]] int endRecord(const QByteArray& archive);

[[nodiscard]] quint32 get16(const QByteArray& archive, int at);
[[nodiscard]] quint32 get32(const QByteArray& archive, int at);
void set16(QByteArray& archive, int at, quint32 value);
void set32(QByteArray& archive, int at, quint32 value);

// Both of the entry's names, in the table of contents and in its own header.
// REQUIRES: `name` is as long as the present one.
void rename(QByteArray& archive, int index, const QByteArray& name);

} // namespace packages
