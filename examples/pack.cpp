// Packs files into a customization package, for the build of the examples only.
//
//     pack PACKAGE.cuix FILE...
//
// Each FILE is named relative to the current directory and becomes an entry of that name. Entries
// keep the order given and carry one fixed time and one fixed mode, so equal files give equal
// packages. Exit status: 0 packed, 1 not, with a sentence on standard error.

#include <zip.h>

#include <cstdio>
#include <memory>
#include <utility>

namespace {

struct Discard
{
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Archive = std::unique_ptr<zip_t, Discard>;

Archive create(const char* path)
{
    int code = 0;
    Archive archive(zip_open(path, ZIP_CREATE | ZIP_TRUNCATE, &code));
    if (!archive) {
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        std::fprintf(stderr, "%s: %s\n", path, zip_error_strerror(&error));
        zip_error_fini(&error);
    }
    return archive;
}

[[nodiscard]] bool addFile(zip_t* archive, const char* name)
{
    zip_source_t* source = zip_source_file(archive, name, 0, -1);
    const zip_int64_t added = source ? zip_file_add(archive, name, source, ZIP_FL_ENC_UTF_8) : -1;
    if (added < 0) {
        zip_source_free(source);
        return false;
    }

    // A DOS time is written as it stands; a time_t would be shifted by the time zone of the build.
    const zip_uint16_t midnight = 0;
    const zip_uint16_t firstOfJanuary2024 = (2024 - 1980) << 9 | 1 << 5 | 1;
    const zip_uint32_t regularFileForAll = 0100644U << 16;
    const auto index = static_cast<zip_uint64_t>(added);
    return zip_set_file_compression(archive, index, ZIP_CM_DEFLATE, 9) == 0 &&
           zip_file_set_dostime(archive, index, midnight, firstOfJanuary2024, 0) == 0 &&
           zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX, regularFileForAll) ==
               0;
}

// zip_close frees an archive that it could write; one that it could not is still ours to discard.
[[nodiscard]] bool finish(Archive archive, const char* path)
{
    if (zip_close(archive.get()) == 0) {
        static_cast<void>(archive.release());
        return true;
    }
    std::fprintf(stderr, "%s: %s\n", path, zip_strerror(archive.get()));
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s PACKAGE.cuix FILE...\n", argc > 0 ? argv[0] : "pack");
        return 1;
    }
    Archive archive = create(argv[1]);
    if (!archive)
        return 1;

    for (int i = 2; i < argc; ++i) {
        if (!addFile(archive.get(), argv[i])) {
            std::fprintf(stderr, "%s: %s\n", argv[i], zip_strerror(archive.get()));
            return 1;
        }
    }
    return finish(std::move(archive), argv[1]) ? 0 : 1;
}
