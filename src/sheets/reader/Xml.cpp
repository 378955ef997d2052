#include "sheets/reader/Xml.h"

#include <expat.h>

#include <charconv>
#include <exception>
#include <memory>
#include <utility>

#include "sheets/reader/Archive.h"
#include "sheets/reader/Source.h"

namespace {

std::string_view withoutNamespace(std::string_view name) {
    return name.substr(name.rfind('|') + 1);
}

// Between the library, which is no C++ and through which nothing may be thrown, and a handler.
class Parser {
  public:
    explicit Parser(XmlHandler& handler)
        : handler_(handler), parser_(XML_ParserCreateNS(nullptr, '|'), XML_ParserFree) {
        if (!parser_) throw Refusal{SheetFault::TooLarge};
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(
            parser_.get(),
            [](void* self, const char* name, const char** attributes) {
                of(self).guard([&](auto& handler) { handler.start(withoutNamespace(name), attributes); });
            },
            [](void* self, const char* name) {
                of(self).guard([&](auto& handler) { handler.end(withoutNamespace(name)); });
            });
        XML_SetCharacterDataHandler(parser_.get(), [](void* self, const char* text, int size) {
            of(self).guard([&](auto& handler) { handler.text({text, static_cast<std::size_t>(size)}); });
        });
        XML_SetStartDoctypeDeclHandler(parser_.get(),
                                       [](void* self, const char*, const char*, const char*, int) {
                                           of(self).guard([](auto&) { throw Refusal{SheetFault::Broken}; });
                                       });
    }

    void parse(std::string_view piece, bool isLast) {
        const auto status =
            XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), static_cast<int>(isLast));
        if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
        if (status == XML_STATUS_OK) return;
        const bool memory = XML_GetErrorCode(parser_.get()) == XML_ERROR_NO_MEMORY;
        throw Refusal{memory ? SheetFault::TooLarge : SheetFault::Broken};
    }

  private:
    static Parser& of(void* self) { return *static_cast<Parser*>(self); }

    template <typename Step>
    void guard(Step step) {
        if (error_) return;
        try {
            step(handler_);
        } catch (...) {
            error_ = std::current_exception();
            XML_StopParser(parser_.get(), XML_FALSE);
        }
    }

    XmlHandler& handler_;
    std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser_;
    std::exception_ptr error_;
};

} // namespace

std::string_view valueOf(Attributes attributes, std::string_view name) {
    const bool inNamespace = name.find('|') != std::string_view::npos;
    for (; *attributes != nullptr; attributes += 2)
        if (const std::string_view found = *attributes;
            found == name || (inNamespace && found.ends_with(name)))
            return attributes[1];
    return {};
}

int numberOf(Attributes attributes, std::string_view name, int otherwise) {
    const auto text = valueOf(attributes, name);
    int number = otherwise;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool readXml(const Archive& archive, const std::string& part, XmlHandler& handler) {
    Parser parser(handler);
    if (!archive.read(part, [&](std::string_view piece) { parser.parse(piece, false); })) return false;
    parser.parse({}, true);
    return true;
}
