// Text whose cells stand between commas, tabs or semicolons.
#include <csv.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "sheets/Formats.h"
#include "sheets/reader/Listing.h"
#include "sheets/reader/Source.h"

namespace {

constexpr std::size_t largestText = 4U << 20U; // bytes; a form of the largest problem takes 100 KB

// Every byte order mark, and otherwise UTF-8 before the code page of Japanese desktops; none for what is
// neither.
std::string inUtf8(std::string_view bytes) {
    UErrorCode status = U_ZERO_ERROR;
    const auto size = static_cast<int32_t>(bytes.size());
    const char* marked = ucnv_detectUnicodeSignature(bytes.data(), size, nullptr, &status);
    for (const char* name : {marked, "UTF-8", "windows-31j"}) {
        if (name == nullptr) continue;
        status = U_ZERO_ERROR;
        const std::unique_ptr<UConverter, void (*)(UConverter*)> from(ucnv_open(name, &status), ucnv_close);
        const std::unique_ptr<UConverter, void (*)(UConverter*)> to(ucnv_open("UTF-8", &status), ucnv_close);
        ucnv_setToUCallBack(from.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        std::string text(3 * bytes.size() + 1, '\0'); // a byte of katakana becomes three
        char* end = text.data();
        const char* next = bytes.data();
        ucnv_convertEx(to.get(), from.get(), &end, text.data() + text.size(), &next, next + bytes.size(),
                       nullptr, nullptr, nullptr, nullptr, true, true, &status);
        text.resize(static_cast<std::size_t>(end - text.data()));
        if (text.starts_with("\xef\xbb\xbf")) text.erase(0, 3);
        if (U_SUCCESS(status)) return text;
    }
    throw Refusal{SheetFault::UnknownFormat};
}

// Every line end as a line feed.
std::string withLineFeeds(std::string text) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r')
            text[kept++] = text[i];
        else if (i + 1 == text.size() || text[i + 1] != '\n')
            text[kept++] = '\n';
    text.resize(kept);
    return text;
}

// What stands in most lines, outside quotes: a name may have another of them in it.
char separatorOf(std::string_view text) {
    constexpr std::string_view offered = ",\t;";
    std::array<int, offered.size()> lines{};
    std::array<bool, offered.size()> met{};
    bool quoted = false;
    for (const char letter : text) {
        quoted = quoted != (letter == '"');
        if (quoted) continue;
        if (const auto at = offered.find(letter); at != std::string_view::npos) {
            lines.at(at) += static_cast<int>(!met.at(at));
            met.at(at) = true;
        } else if (letter == '\n') {
            met.fill(false);
        }
    }
    return offered[static_cast<std::size_t>(std::ranges::max_element(lines) - lines.begin())];
}

// Takes the cells from the library, which is no C++: nothing may be thrown through it.
class Cells {
  public:
    explicit Cells(Listing& listing) : listing_(listing) {}

    static void add(void* text, std::size_t size, void* self) {
        auto& cells = *static_cast<Cells*>(self);
        try {
            if (!cells.error_)
                cells.listing_.cell(cells.row_, cells.column_++, CellKind::Text,
                                    {static_cast<char*>(text), size});
        } catch (...) {
            cells.error_ = std::current_exception();
        }
    }
    static void endRow(int, void* self) {
        auto& cells = *static_cast<Cells*>(self);
        ++cells.row_;
        cells.column_ = 0;
    }
    void rethrow() const {
        if (error_) std::rethrow_exception(error_);
    }

  private:
    Listing& listing_;
    int row_ = 0;
    int column_ = 0;
    std::exception_ptr error_;
};

void separate(const std::string& text, Listing& listing) {
    csv_parser parser{};
    if (csv_init(&parser, CSV_REPALL_NL) != 0) throw Refusal{SheetFault::TooLarge};
    const std::unique_ptr<csv_parser, void (*)(csv_parser*)> guard(&parser, csv_free);
    csv_set_delim(&parser, static_cast<unsigned char>(separatorOf(text)));
    Cells cells(listing);
    const bool whole =
        csv_parse(&parser, text.data(), text.size(), Cells::add, Cells::endRow, &cells) == text.size() &&
        csv_fini(&parser, Cells::add, Cells::endRow, &cells) == 0;
    cells.rethrow();
    if (!whole) throw Refusal{SheetFault::TooLarge};
}

} // namespace

bool isSeparatedText(const Source& source) {
    static constexpr std::array<std::string_view, 3> others{"<", "{\\rtf", "%PDF"};
    return source.archive == nullptr && std::ranges::none_of(others, [&](std::string_view start) {
               return source.bytes.starts_with(start);
           });
}

void readSeparatedText(const Source& source, Listing& listing) {
    if (source.bytes.size() > largestText) throw Refusal{SheetFault::TooLarge};
    const auto text = withLineFeeds(inUtf8(source.bytes));
    if (text.find('\0') != std::string::npos) throw Refusal{SheetFault::UnknownFormat};
    listing.table({});
    separate(text, listing);
}
