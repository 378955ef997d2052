#include "sheets/reader/Archive.h"

#include <zip.h>

#include <array>

#include "sheets/reader/Source.h"

namespace {

// A form of the largest problem unpacks to 1 MB.
constexpr std::size_t mostUnpacked = 64U << 20U;

zip_int64_t placeOf(zip* archive, const std::string& part) {
    return zip_name_locate(archive, part.c_str(), ZIP_FL_NOCASE);
}

} // namespace

Archive::Archive(std::string_view bytes) : zip_(nullptr, zip_discard) {
    auto* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr);
    zip_.reset(zip_open_from_source(source, ZIP_RDONLY, nullptr));
    if (zip_) return;
    zip_source_free(source);
    throw Refusal{SheetFault::Broken};
}

bool Archive::has(const std::string& part) const {
    return placeOf(zip_.get(), part) >= 0;
}

bool Archive::hasLike(std::string_view piece) const {
    const auto parts = static_cast<zip_uint64_t>(zip_get_num_entries(zip_.get(), 0));
    for (zip_uint64_t part = 0; part < parts; ++part)
        if (const char* name = zip_get_name(zip_.get(), part, 0);
            name != nullptr && std::string_view(name).find(piece) != std::string_view::npos)
            return true;
    return false;
}

bool Archive::read(const std::string& part, const std::function<void(std::string_view)>& take) const {
    const auto place = placeOf(zip_.get(), part);
    if (place < 0) return false;
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(
        zip_fopen_index(zip_.get(), static_cast<zip_uint64_t>(place), 0), zip_fclose);
    if (!file) {
        const int why = zip_error_code_zip(zip_get_error(zip_.get()));
        throw Refusal{why == ZIP_ER_NOPASSWD ? SheetFault::Locked : SheetFault::Broken};
    }
    std::array<char, 64U << 10U> piece;
    zip_int64_t size = 0;
    while ((size = zip_fread(file.get(), piece.data(), piece.size())) > 0) {
        unpacked_ += static_cast<std::size_t>(size);
        if (unpacked_ > mostUnpacked) throw Refusal{SheetFault::TooLarge};
        take({piece.data(), static_cast<std::size_t>(size)});
    }
    if (size < 0) throw Refusal{SheetFault::Broken}; // the check sum, too
    return true;
}
