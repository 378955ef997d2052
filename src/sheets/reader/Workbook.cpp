// .xlsx: relationships name the parts, the workbook names the sheets, texts stand in a part of their own or
// in the cells. Programs differ in how they write all of it; the transitional and the strict form differ in
// namespaces alone.
#include <charconv>
#include <map>
#include <utility>
#include <vector>

#include "sheets/Formats.h"
#include "sheets/reader/Archive.h"
#include "sheets/reader/Listing.h"
#include "sheets/reader/Source.h"
#include "sheets/reader/Xml.h"

namespace {

constexpr std::size_t longestText = 256U << 10U; // bytes; the format allows 32,767 characters
constexpr std::size_t mostShared = 64U << 20U;   // bytes of all shared texts

// "xl/worksheets/sheet1.xml", whether a part in "xl/" calls it "worksheets/sheet1.xml",
// "/xl/worksheets/sheet1.xml" or "../xl/worksheets/sheet1.xml".
std::string resolved(const std::string& folder, std::string_view target) {
    std::string path = target.starts_with('/') ? std::string() : folder;
    while (!target.empty()) {
        const auto name = target.substr(0, target.find('/'));
        target.remove_prefix(std::min(name.size() + 1, target.size()));
        if (name == "..")
            path.erase(path.size() < 2 ? 0 : path.rfind('/', path.size() - 2) + 1);
        else if (!name.empty() && name != ".")
            path.append(name).append(target.empty() ? "" : "/");
    }
    return path;
}

// What a part's relationships lead to.
class Relationships : public XmlHandler {
  public:
    Relationships(const Archive& archive, const std::string& part)
        : folder_(part.substr(0, part.rfind('/') + 1)) {
        readXml(archive, folder_ + "_rels/" + part.substr(folder_.size()) + ".rels", *this);
    }
    void start(std::string_view element, Attributes attributes) override {
        if (element != "Relationship" || valueOf(attributes, "TargetMode") == "External") return;
        const auto type = valueOf(attributes, "Type");
        const auto part = resolved(folder_, valueOf(attributes, "Target"));
        byType_.try_emplace(std::string(type.substr(type.rfind('/') + 1)), part);
        byId_.try_emplace(std::string(valueOf(attributes, "Id")),
                          type.ends_with("/worksheet") ? part : std::string());
    }
    // Empty when there is none.
    std::string ofType(const std::string& type) const { return find(byType_, type); }
    std::string worksheet(const std::string& id) const { return find(byId_, id); }

  private:
    static std::string find(const std::map<std::string, std::string>& parts, const std::string& key) {
        const auto found = parts.find(key);
        return found == parts.end() ? std::string() : found->second;
    }

    std::string folder_;
    std::map<std::string, std::string> byType_;
    std::map<std::string, std::string> byId_; // none for charts and the like
};

// "_x000B_" stands for a control character that the format cannot hold, "_x005F_" for a "_" that would
// otherwise begin such a thing. None is beyond ASCII: those the format can hold.
std::string withoutEscapes(std::string_view text) {
    constexpr std::size_t length = 7;
    std::string plain;
    while (!text.empty()) {
        unsigned code = 0x80;
        const bool framed = text.size() >= length && text.starts_with("_x") && text[length - 1] == '_';
        const char* end = text.data() + length - 1;
        const bool escaped =
            framed && std::from_chars(text.data() + 2, end, code, 16).ptr == end && code < 0x80;
        plain += escaped ? static_cast<char>(code) : text.front();
        text.remove_prefix(escaped ? length : 1);
    }
    return plain;
}

// A text, in pieces where its fonts change, without the reading aid that stands above Japanese words.
class RichText {
  public:
    void start(std::string_view element) {
        if (element == "rPh") inAid_ = true;
        inText_ = element == "t" && !inAid_;
    }
    void end(std::string_view element) {
        if (element == "rPh") inAid_ = false;
        inText_ = false;
    }
    void text(std::string_view piece) {
        if (inText_) append(text_, piece);
    }
    std::string take() { return withoutEscapes(std::exchange(text_, {})); }

    static void append(std::string& text, std::string_view piece) {
        if (text.size() + piece.size() > longestText) throw Refusal{SheetFault::TooLarge};
        text += piece;
    }

  private:
    std::string text_;
    bool inAid_ = false;
    bool inText_ = false;
};

// Texts that many cells share.
class SharedTexts : public XmlHandler {
  public:
    void start(std::string_view element, Attributes) override { item_.start(element); }
    void text(std::string_view piece) override { item_.text(piece); }
    void end(std::string_view element) override {
        item_.end(element);
        if (element != "si") return;
        texts_.push_back(item_.take());
        bytes_ += texts_.back().size() + sizeof(std::string);
        if (bytes_ > mostShared) throw Refusal{SheetFault::TooLarge};
    }
    const std::string* at(std::string_view number) const {
        std::size_t index = texts_.size();
        std::from_chars(number.data(), number.data() + number.size(), index);
        return index < texts_.size() ? &texts_[index] : nullptr;
    }

  private:
    RichText item_;
    std::vector<std::string> texts_;
    std::size_t bytes_ = 0;
};

// Row and column of "B12", both from 0; a range counts by its first cell.
std::pair<int, int> placeOf(std::string_view reference) {
    constexpr int beyond = 10'000'000; // more than any sheet has
    int row = 0;
    int column = 0;
    for (const char letter : reference.substr(0, reference.find(':')))
        if (letter >= 'A' && letter <= 'Z')
            column = std::min(column * 26 + (letter - 'A' + 1), beyond);
        else if (letter >= '0' && letter <= '9')
            row = std::min(row * 10 + (letter - '0'), beyond);
    if (row == 0 || column == 0) throw Refusal{SheetFault::Broken};
    return {row - 1, column - 1};
}

class Worksheet : public XmlHandler {
  public:
    Worksheet(const SharedTexts& texts, Listing& listing) : texts_(texts), listing_(listing) {}

    void start(std::string_view element, Attributes attributes) override {
        if (element == "row")
            startRow(attributes);
        else if (element == "c")
            startCell(attributes);
        else if (element == "f")
            isFormula_ = true;
        else if (element == "mergeCell")
            merge(valueOf(attributes, "ref"));
        inValue_ = element == "v";
        inline_.start(element);
    }
    void text(std::string_view piece) override {
        if (inValue_) RichText::append(value_, piece);
        inline_.text(piece);
    }
    void end(std::string_view element) override {
        inValue_ = false;
        inline_.end(element);
        if (element == "c") tellCell();
    }

  private:
    // The places may be left out: then one follows the other.
    void startRow(Attributes attributes) {
        row_ = numberOf(attributes, "r", row_ + 2) - 1;
        column_ = -1;
    }
    void startCell(Attributes attributes) {
        ++column_;
        if (const auto reference = valueOf(attributes, "r"); !reference.empty())
            std::tie(row_, column_) = placeOf(reference);
        type_ = valueOf(attributes, "t");
        isFormula_ = false;
        value_.clear();
        inline_.take();
    }

    void tellCell() {
        auto [kind, text] = content();
        if (isFormula_) kind = CellKind::Formula;
        listing_.cell(row_, column_, kind, text);
    }

    std::pair<CellKind, std::string> content() {
        if (type_ == "s") {
            if (value_.empty()) return {};
            const auto* text = texts_.at(value_);
            return text == nullptr ? std::pair{CellKind::Error, value_} : std::pair{CellKind::Text, *text};
        }
        if (auto text = inline_.take(); !text.empty()) return {CellKind::Text, text};
        if (type_ == "str" || type_ == "inlineStr") return {CellKind::Text, withoutEscapes(value_)};
        if (type_ == "b") return {CellKind::Truth, value_ == "0" ? "FALSE" : "TRUE"};
        if (type_.empty() || type_ == "n" || type_ == "d") return {CellKind::Number, value_};
        return {CellKind::Error, value_.empty() ? type_ : value_}; // "e", or what is not known here
    }

    void merge(std::string_view range) {
        const auto colon = range.find(':');
        listing_.merged(placeOf(range).first,
                        placeOf(colon == std::string_view::npos ? range : range.substr(colon + 1)).first);
    }

    const SharedTexts& texts_;
    Listing& listing_;
    int row_ = -1;
    int column_ = -1;
    std::string type_;
    std::string value_;
    RichText inline_;
    bool inValue_ = false;
    bool isFormula_ = false;
};

// Names of the sheets, each with the relationship that leads to it.
class Workbook : public XmlHandler {
  public:
    void start(std::string_view element, Attributes attributes) override {
        isWorkbook = isWorkbook || element == "workbook";
        if (element == "sheet")
            sheets.emplace_back(valueOf(attributes, "name"), valueOf(attributes, "relationships|id"));
    }
    std::vector<std::pair<std::string, std::string>> sheets;
    bool isWorkbook = false;
};

} // namespace

bool isWorkbook(const Source& source) {
    return source.archive != nullptr && source.archive->has("[Content_Types].xml");
}

void readWorkbook(const Source& source, Listing& listing) {
    const auto& archive = *source.archive;
    // A table from outside needs no programs.
    if (archive.hasLike("vbaProject")) throw Refusal{SheetFault::Macros};
    const auto part = Relationships(archive, {}).ofType("officeDocument");
    Workbook workbook;
    if (part.ends_with(".bin")) throw Refusal{SheetFault::UnknownFormat}; // .xlsb
    if (!readXml(archive, part, workbook)) throw Refusal{SheetFault::Broken};
    if (!workbook.isWorkbook) throw Refusal{SheetFault::UnknownFormat}; // a text, slides
    const Relationships parts(archive, part);
    SharedTexts texts;
    if (const auto shared = parts.ofType("sharedStrings"); !shared.empty()) readXml(archive, shared, texts);
    for (const auto& [name, id] : workbook.sheets) {
        const auto sheet = parts.worksheet(id);
        if (sheet.empty()) continue;
        listing.table(name);
        Worksheet cells(texts, listing);
        if (!readXml(archive, sheet, cells)) throw Refusal{SheetFault::Broken};
    }
}
