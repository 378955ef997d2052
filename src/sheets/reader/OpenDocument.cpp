// .ods: all tables in one part. Rows and cells that follow each other alike stand there once, with a count.
#include <algorithm>
#include <set>
#include <vector>

#include "sheets/Formats.h"
#include "sheets/reader/Archive.h"
#include "sheets/reader/Listing.h"
#include "sheets/reader/Source.h"
#include "sheets/reader/Xml.h"

namespace {

constexpr std::size_t longestText = 256U << 10U; // bytes
constexpr int mostRepeated = 1 << 20;            // rows of a sheet
constexpr int mostRows = 1 << 24;                // far below where the counts would overflow

struct Cell {
    int column = 0;
    int repeated = 1;
    int rows = 1; // that were made one
    int columns = 1;
    CellKind kind = CellKind::Text;
    std::string text{};
};

class Tables : public XmlHandler {
  public:
    explicit Tables(Listing& listing) : listing_(listing) {}

    void start(std::string_view element, Attributes attributes) override {
        ++depth_;
        if (passedOver_ != 0) return;
        if (isPassedOver(element))
            passedOver_ = depth_;
        else if (cellDepth_ != 0)
            startInCell(element, attributes);
        else if (element == "table")
            startTable(attributes);
        else if (element == "table-row")
            rowsRepeated_ = counted(attributes, "table:1.0|number-rows-repeated");
        else if (element == "table-cell" || element == "covered-table-cell")
            startCell(attributes);
    }
    void text(std::string_view piece) override {
        if (passedOver_ == 0 && inParagraph_) append(piece);
    }
    void end(std::string_view element) override {
        if (passedOver_ == 0) endRead(element);
        if (passedOver_ == depth_) passedOver_ = 0;
        --depth_;
    }

  private:
    // What has texts of its own, which are none of the cell's: comments, reading aids, shapes, former
    // versions.
    bool isPassedOver(std::string_view element) const {
        static const std::set<std::string_view> always{
            "annotation", "ruby-text", "note", "frame", "shapes", "custom-shape", "tracked-changes"};
        return always.contains(element) || (cellDepth_ != 0 && !inParagraph_ && element != "p");
    }

    static int counted(Attributes attributes, std::string_view name) {
        return std::clamp(numberOf(attributes, name, 1), 1, mostRepeated);
    }

    void startTable(Attributes attributes) {
        listing_.table(valueOf(attributes, "table:1.0|name"));
        row_ = 0;
        endRow();
    }

    void startCell(Attributes attributes) {
        cellDepth_ = depth_;
        paragraphs_ = 0;
        cell_ = {column_, counted(attributes, "table:1.0|number-columns-repeated"),
                 counted(attributes, "table:1.0|number-rows-spanned"),
                 counted(attributes, "table:1.0|number-columns-spanned")};
        const auto type = valueOf(attributes, "office:1.0|value-type");
        if (type == "float" || type == "percentage" || type == "currency")
            set(CellKind::Number, valueOf(attributes, "office:1.0|value"));
        else if (type == "date" || type == "time")
            set(CellKind::Number,
                valueOf(attributes, type == "date" ? "office:1.0|date-value" : "office:1.0|time-value"));
        else if (type == "boolean")
            set(CellKind::Truth,
                valueOf(attributes, "office:1.0|boolean-value") == "true" ? "TRUE" : "FALSE");
        else
            cell_.text = valueOf(attributes, "office:1.0|string-value");
        hasValue_ = !cell_.text.empty();
        if (valueOf(attributes, "calcext:1.0|value-type") == "error") set(CellKind::Error, {});
        if (!valueOf(attributes, "table:1.0|formula").empty()) cell_.kind = CellKind::Formula;
    }
    void set(CellKind kind, std::string_view text) {
        cell_.kind = kind;
        cell_.text = text;
    }

    void startInCell(std::string_view element, Attributes attributes) {
        if (element == "p") {
            inParagraph_ = true;
            if (paragraphs_++ > 0) append("\n");
        } else if (element == "s") {
            append(std::string(static_cast<std::size_t>(counted(attributes, "text:1.0|c")), ' '));
        } else if (element == "tab" || element == "line-break") {
            append(element == "tab" ? "\t" : "\n");
        }
    }
    void append(std::string_view piece) {
        if (hasValue_) return; // the paragraphs show it as it is laid out
        if (cell_.text.size() + piece.size() > longestText) throw Refusal{SheetFault::TooLarge};
        cell_.text += piece;
    }

    void endRead(std::string_view element) {
        if (element == "p" && depth_ == cellDepth_ + 1) inParagraph_ = false;
        if (depth_ == cellDepth_) {
            cellDepth_ = 0;
            column_ += cell_.repeated;
            if (column_ > mostRows) throw Refusal{SheetFault::Broken};
            cells_.push_back(cell_);
        } else if (element == "table-row") {
            tellRow();
        }
    }

    void tellRow() {
        std::erase_if(cells_, [](const Cell& cell) {
            return cell.text.empty() && cell.kind != CellKind::Formula && cell.rows == 1 && cell.columns == 1;
        });
        for (int copy = 0; copy < (cells_.empty() ? 0 : rowsRepeated_); ++copy)
            for (const auto& cell : cells_) tell(cell, row_ + copy);
        row_ += rowsRepeated_;
        if (row_ > mostRows) throw Refusal{SheetFault::Broken};
        endRow();
    }
    void tell(const Cell& cell, int row) {
        for (int copy = 0; copy < cell.repeated; ++copy)
            listing_.cell(row, cell.column + copy, cell.kind, cell.text);
        if (cell.rows > 1 || cell.columns > 1) listing_.merged(row, row + cell.rows - 1);
    }
    void endRow() {
        column_ = 0;
        cells_.clear();
    }

    Listing& listing_;
    int depth_ = 0;
    int passedOver_ = 0; // depth of the element that is; 0: none
    int cellDepth_ = 0;  // 0: not in a cell
    int paragraphs_ = 0;
    bool inParagraph_ = false;
    bool hasValue_ = false;
    int row_ = 0;
    int rowsRepeated_ = 1;
    int column_ = 0;
    Cell cell_;
    std::vector<Cell> cells_; // of the row
};

class Manifest : public XmlHandler {
  public:
    void start(std::string_view element, Attributes) override {
        isLocked = isLocked || element == "encryption-data";
    }
    bool isLocked = false;
};

} // namespace

bool isOpenDocument(const Source& source) {
    std::string type;
    if (source.archive != nullptr)
        source.archive->read("mimetype", [&type](std::string_view piece) { type += piece.substr(0, 100); });
    return type.starts_with("application/vnd.oasis.opendocument.spreadsheet");
}

void readOpenDocument(const Source& source, Listing& listing) {
    const auto& archive = *source.archive;
    if (archive.hasLike("Basic/") || archive.hasLike("Scripts/")) throw Refusal{SheetFault::Macros};
    Manifest manifest;
    readXml(archive, "META-INF/manifest.xml", manifest);
    if (manifest.isLocked) throw Refusal{SheetFault::Locked};
    Tables tables(listing);
    if (!readXml(archive, "content.xml", tables)) throw Refusal{SheetFault::Broken};
}
