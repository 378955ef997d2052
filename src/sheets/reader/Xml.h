// Reads a part of an archive as XML, element by element.
#pragma once

#include <string>
#include <string_view>

class Archive;

// Those of an element: name, value, …, null. A name in a namespace stands as "namespace|name".
using Attributes = const char* const*;

// The value of an attribute; empty when there is none. A name with "|" is looked for behind whatever begins
// its namespace, since each format has two or three generations of them.
std::string_view valueOf(Attributes attributes, std::string_view name);
// A whole number among the attributes; `otherwise` when there is none.
int numberOf(Attributes attributes, std::string_view name, int otherwise);

// Elements are named without their namespaces.
class XmlHandler {
  public:
    XmlHandler() = default;
    XmlHandler(const XmlHandler&) = delete;
    XmlHandler& operator=(const XmlHandler&) = delete;
    virtual ~XmlHandler() = default;
    virtual void start(std::string_view element, Attributes attributes) = 0;
    virtual void end(std::string_view) {}
    virtual void text(std::string_view) {}
};

// False when there is no such part. Refuses one that is no whole document, or has a document type, which none
// of these formats needs.
bool readXml(const Archive& archive, const std::string& part, XmlHandler& handler);
