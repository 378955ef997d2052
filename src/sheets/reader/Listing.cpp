#include "sheets/reader/Listing.h"

#include <cstdio>

#include "sheets/reader/Source.h"

namespace {

// What a form of the largest problem needs, thirty times over.
constexpr std::size_t mostCells = 300'000;

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

} // namespace

void Listing::announce() {
    if (++cells_ > mostCells) throw Refusal{SheetFault::TooLarge};
    if (!announced_) std::printf("S\t%s\n", escaped(name_).c_str());
    announced_ = true;
}

void Listing::cell(int row, int column, CellKind kind, std::string_view text) {
    if (text.empty() && kind != CellKind::Formula) return;
    announce();
    std::printf("C\t%d\t%d\t%c\t%s\n", row + 1, column, static_cast<char>(kind), escaped(text).c_str());
}

void Listing::merged(int firstRow, int lastRow) {
    announce();
    std::printf("M\t%d\t%d\n", firstRow + 1, lastRow + 1);
}
