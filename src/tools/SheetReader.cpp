// hollin-sheet FILE: the cells of a spreadsheet file, one a line, on standard output. Such a file comes from
// outside and may be anything: a few kilobytes that unpack to gigabytes, or bytes that make a library
// stumble. So it is read by a process of its own, with little memory and time, and what happens to it happens
// to no work of the user's.
//
//     S <tab> name of the sheet                               the cells below stand on it
//     C <tab> row, from 1 <tab> column, from 0 <tab> kind <tab> text    kind: t text, n number, b truth, f
//     formula M <tab> first row <tab> last row <tab> first column <tab> last column    one cell made of
//     several
//
// "\", tab and line ends in a text stand as "\\", "\t", "\n". The exit code is one of SheetFault.
#include <sys/resource.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <list>
#include <new>
#include <orcus/orcus_xlsx.hpp>
#include <orcus/spreadsheet/import_interface.hpp>
#include <orcus/zip_archive.hpp>
#include <orcus/zip_archive_stream.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "survey/SheetFault.h"

namespace sheet = orcus::spreadsheet;

namespace {

// What a form of the largest problem needs, many times over: its cells take 14 MB.
constexpr rlim_t mostMemory = 384U << 20U; // bytes of address space
constexpr rlim_t mostSeconds = 20;
constexpr std::size_t mostCells = 300'000;
constexpr sheet::row_t mostRows = 1'048'576; // what the format allows
constexpr sheet::col_t mostColumns = 16'384;

struct TooLarge {};

std::string escaped(std::string_view text) {
    std::string line;
    for (const char byte : text) {
        switch (byte) {
            case '\\':
                line += "\\\\";
                break;
            case '\t':
                line += "\\t";
                break;
            case '\n':
                line += "\\n";
                break;
            default:
                line += byte;
        }
    }
    return line;
}

// Texts that many cells share.
class SharedStrings : public sheet::iface::import_shared_strings {
  public:
    size_t append(std::string_view text) override {
        texts_.emplace_back(text);
        return texts_.size() - 1;
    }
    size_t add(std::string_view text) override { return append(text); }
    // A text of several fonts comes in pieces.
    void set_segment_font(size_t) override {}
    void set_segment_bold(bool) override {}
    void set_segment_italic(bool) override {}
    void set_segment_font_name(std::string_view) override {}
    void set_segment_font_size(double) override {}
    void set_segment_font_color(sheet::color_elem_t, sheet::color_elem_t, sheet::color_elem_t,
                                sheet::color_elem_t) override {}
    void append_segment(std::string_view piece) override { pieces_ += piece; }
    size_t commit_segments() override { return append(std::exchange(pieces_, {})); }

    std::string_view operator[](size_t index) const {
        return index < texts_.size() ? std::string_view(texts_[index]) : std::string_view();
    }

  private:
    std::vector<std::string> texts_;
    std::string pieces_;
};

// Counts over all sheets, so that many small ones are no way around.
class CellLimit {
  public:
    void count() {
        if (++cells_ > mostCells) throw TooLarge{};
    }

  private:
    std::size_t cells_ = 0;
};

// One sheet: writes its cells as they come. Looks, sizes and rules of the cells are passed over.
class Sheet : public sheet::iface::import_sheet,
              sheet::iface::import_sheet_properties,
              sheet::iface::import_formula,
              sheet::iface::import_array_formula {
  public:
    Sheet(std::string_view name, const SharedStrings& strings, CellLimit& limit)
        : name_(name), strings_(strings), limit_(limit) {}

    sheet::iface::import_sheet_properties* get_sheet_properties() override { return this; }
    sheet::iface::import_formula* get_formula() override { return this; }
    sheet::iface::import_array_formula* get_array_formula() override { return this; }
    sheet::range_size_t get_sheet_size() const override { return {mostRows, mostColumns}; }

    void set_auto(sheet::row_t row, sheet::col_t column, std::string_view text) override {
        cell(row, column, 't', text);
    }
    void set_string(sheet::row_t row, sheet::col_t column, sheet::string_id_t index) override {
        cell(row, column, 't', strings_[index]);
    }
    void set_value(sheet::row_t row, sheet::col_t column, double number) override {
        char text[32];
        const auto end = std::to_chars(std::begin(text), std::end(text), number).ptr;
        cell(row, column, 'n', {text, static_cast<std::size_t>(end - text)});
    }
    void set_bool(sheet::row_t row, sheet::col_t column, bool truth) override {
        cell(row, column, 'b', truth ? "TRUE" : "FALSE");
    }
    void set_date_time(sheet::row_t row, sheet::col_t column, int year, int month, int day, int, int,
                       double) override {
        cell(row, column, 'n',
             std::to_string(year) + '/' + std::to_string(month) + '/' + std::to_string(day));
    }
    void fill_down_cells(sheet::row_t, sheet::col_t, sheet::row_t) override {}
    void set_format(sheet::row_t, sheet::col_t, size_t) override {}
    void set_format(sheet::row_t, sheet::col_t, sheet::row_t, sheet::col_t, size_t) override {}

    // The library's versions differ in what they tell of columns and rows: each takes those that it knows.
    // NOLINTBEGIN(modernize-use-override)
    void set_column_format(sheet::col_t, sheet::col_t, std::size_t) {}
    void set_row_format(sheet::row_t, std::size_t) {}
    void set_column_width(sheet::col_t, double, orcus::length_unit_t) {}
    void set_column_width(sheet::col_t, sheet::col_t, double, orcus::length_unit_t) {}
    void set_column_hidden(sheet::col_t, bool) {}
    void set_column_hidden(sheet::col_t, sheet::col_t, bool) {}
    // NOLINTEND(modernize-use-override)
    void set_row_height(sheet::row_t, double, orcus::length_unit_t) override {}
    void set_row_hidden(sheet::row_t, bool) override {}
    void set_merge_cell_range(const sheet::range_t& range) override {
        announce();
        std::printf("M\t%d\t%d\t%d\t%d\n", range.first.row + 1, range.last.row + 1, range.first.column,
                    range.last.column);
    }

    void set_position(sheet::row_t row, sheet::col_t column) override { formulaAt_ = {row, column}; }
    void set_range(const sheet::range_t& range) override { formulaAt_ = range.first; }
    void set_formula(sheet::formula_grammar_t, std::string_view) override {}
    void set_shared_formula_index(size_t) override {}
    void set_result_string(std::string_view) override {}
    void set_result_value(double) override {}
    void set_result_bool(bool) override {}
    void set_result_empty() override {}
    void set_result_string(sheet::row_t, sheet::col_t, std::string_view) override {}
    void set_result_value(sheet::row_t, sheet::col_t, double) override {}
    void set_result_bool(sheet::row_t, sheet::col_t, bool) override {}
    void set_result_empty(sheet::row_t, sheet::col_t) override {}
    void commit() override { cell(formulaAt_.row, formulaAt_.column, 'f', {}); }

    const std::string& name() const { return name_; }

  private:
    void announce() {
        if (!announced_) std::printf("S\t%s\n", escaped(name_).c_str());
        announced_ = true;
    }
    void cell(sheet::row_t row, sheet::col_t column, char kind, std::string_view text) {
        limit_.count();
        announce();
        std::printf("C\t%d\t%d\t%c\t%s\n", row + 1, column, kind, escaped(text).c_str());
    }

    std::string name_;
    const SharedStrings& strings_;
    CellLimit& limit_;
    sheet::address_t formulaAt_{};
    bool announced_ = false;
};

// "B12" and "B12:D14", as far as the library asks for them.
class References : public sheet::iface::import_reference_resolver {
  public:
    sheet::src_address_t resolve_address(std::string_view text) override {
        sheet::src_address_t address{0, 0, 0};
        for (const char letter : text)
            if (letter >= 'A' && letter <= 'Z')
                address.column = std::min(address.column * 26 + (letter - 'A' + 1), mostColumns);
            else if (letter >= '0' && letter <= '9')
                address.row = std::min(address.row * 10 + (letter - '0'), mostRows);
        --address.row;
        --address.column;
        return address;
    }
    sheet::src_range_t resolve_range(std::string_view text) override {
        const auto colon = text.find(':');
        return {resolve_address(text.substr(0, colon)),
                resolve_address(colon == std::string_view::npos ? text : text.substr(colon + 1))};
    }
};

class Workbook : public sheet::iface::import_factory {
  public:
    sheet::iface::import_shared_strings* get_shared_strings() override { return &strings_; }
    sheet::iface::import_reference_resolver* get_reference_resolver(sheet::formula_ref_context_t) override {
        return &references_;
    }
    sheet::iface::import_sheet* append_sheet(sheet::sheet_t, std::string_view name) override {
        limit_.count();
        return &sheets_.emplace_back(name, strings_, limit_);
    }
    sheet::iface::import_sheet* get_sheet(std::string_view name) override {
        const auto found = std::ranges::find(sheets_, name, &Sheet::name);
        return found == sheets_.end() ? nullptr : &*found;
    }
    sheet::iface::import_sheet* get_sheet(sheet::sheet_t index) override {
        if (index < 0 || static_cast<std::size_t>(index) >= sheets_.size()) return nullptr;
        return &*std::next(sheets_.begin(), index);
    }
    void finalize() override {}

  private:
    SharedStrings strings_;
    References references_;
    CellLimit limit_;
    std::list<Sheet> sheets_; // the library keeps their addresses
};

void limitResources() {
    const auto limit = [](auto resource, rlim_t most) {
        const rlimit both{most, most};
        setrlimit(resource, &both);
    };
    limit(RLIMIT_CPU, mostSeconds);
    limit(RLIMIT_CORE, 0);
#ifndef __SANITIZE_ADDRESS__ // its shadow memory takes terabytes of addresses
    limit(RLIMIT_AS, mostMemory);
#endif
}

// A form has no programs in it: a file that has some was not made here.
bool hasMacros(const char* path) {
    orcus::zip_archive_stream_fd stream(path);
    orcus::zip_archive archive(&stream);
    archive.load();
    for (std::size_t i = 0; i < archive.get_file_entry_count(); ++i)
        if (archive.get_file_entry_name(i).find("vbaProject") != std::string_view::npos) return true;
    return false;
}

SheetFault readSheets(const char* path) {
    try {
        if (hasMacros(path)) return SheetFault::Macros;
        Workbook workbook;
        orcus::orcus_xlsx(&workbook).read_file(path);
        return SheetFault::None;
    } catch (const TooLarge&) {
        return SheetFault::TooLarge;
    } catch (const std::bad_alloc&) {
        return SheetFault::TooLarge;
    } catch (const std::length_error&) {
        return SheetFault::TooLarge;
    } catch (const std::exception&) { // broken files raise errors of many kinds, most without a text
        return SheetFault::Broken;
    }
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) return static_cast<int>(SheetFault::Broken);
    limitResources();
    const auto fault = readSheets(argv[1]);
    std::fflush(stdout);
    return static_cast<int>(fault);
}
