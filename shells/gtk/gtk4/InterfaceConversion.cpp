// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/gtk4/InterfaceConversion.h"

#include <memory>
#include <string_view>
#include <utility>

#include "base/GlibHandles.h"
#include "shells/Guarded.h"

namespace publishing {
namespace {

struct Element {
  using Attributes = std::vector<std::pair<std::string, std::string>>;

  [[nodiscard]] std::string attribute(std::string_view wanted) const {
    for (const auto& [known, value] : attributes)
      if (known == wanted) return value;
    return {};
  }

  [[nodiscard]] bool isProperty(std::string_view wanted) const {
    return name == "property" && attribute("name") == wanted;
  }

  std::string name;
  Attributes attributes;
  std::string text;  // of an element without others in it
  std::vector<Element> children;
};

// Reading -----------------------------------------------------------------------------------------

void begin(GMarkupParseContext*, const gchar* name, const gchar** keys, const gchar** values,
           gpointer open, GError**) {
  guarded([&] {
    Element element{name, {}, {}, {}};
    for (; *keys != nullptr; ++keys, ++values)
      element.attributes.emplace_back(*keys, *values);
    static_cast<std::vector<Element>*>(open)->push_back(std::move(element));
  });
}

void end(GMarkupParseContext*, const gchar*, gpointer open, GError**) {
  guarded([&] {
    auto& elements = *static_cast<std::vector<Element>*>(open);
    if (elements.size() < 2) return;  // there was no memory for its beginning
    Element element = std::move(elements.back());
    elements.pop_back();
    elements.back().children.push_back(std::move(element));
  });
}

void addText(GMarkupParseContext*, const gchar* text, gsize length, gpointer open, GError**) {
  guarded([&] { static_cast<std::vector<Element>*>(open)->back().text.append(text, length); });
}

struct FreeParser {
  void operator()(GMarkupParseContext* parser) const { g_markup_parse_context_free(parser); }
};

// An element around all; nothing, with the reason in the log, for what is no XML.
std::optional<Element> read(const char* description, gssize length) {
  const GMarkupParser functions{begin, end, addText, nullptr, nullptr};
  std::vector<Element> open(1);
  const std::unique_ptr<GMarkupParseContext, FreeParser> parser(
      g_markup_parse_context_new(&functions, G_MARKUP_DEFAULT_FLAGS, &open, nullptr));
  GError* failure = nullptr;
  if (g_markup_parse_context_parse(parser.get(), description, length, &failure) == 0 ||
      g_markup_parse_context_end_parse(parser.get(), &failure) == 0) {
    const GlibError error(failure);
    g_warning("The interface description cannot be read: %s", error->message);
    return std::nullopt;
  }
  return std::move(open.front());
}

// Converting --------------------------------------------------------------------------------------

Element newProperty(const std::string& name, std::string value) {
  return {"property", {{"name", name}}, std::move(value), {}};
}

// Where the object stands in its parent, which is said behind it in GTK 3 and in it in GTK 4.
Element layoutOf(const Element& packing) {
  Element layout{"layout", {}, {}, {}};
  for (const Element& property : packing.children) {
    const std::string name = property.attribute("name");
    layout.children.push_back(newProperty(name == "left-attach"  ? "column"
                                          : name == "top-attach" ? "row"
                                                                 : name,
                                          property.text));
  }
  return layout;
}

// The name that screen readers say, which is an object of its own in GTK 3.
Element accessibilityOf(const Element& accessible) {
  Element accessibility{"accessibility", {}, {}, {}};
  for (Element property : accessible.children) {
    property.attributes.front().second = "label";
    accessibility.children.push_back(std::move(property));
  }
  return accessibility;
}

// Relations of one kind have no counterpart, but the widget at their other end says the same.
Element relationsOf(const Element& accessibility) {
  Element relations{"accessibility", {}, {}, {}};
  for (const Element& relation : accessibility.children) {
    if (relation.attribute("type") == "label-for") continue;
    relations.children.push_back(
        {"relation", {{"name", relation.attribute("type")}}, relation.attribute("target"), {}});
  }
  return relations;
}

class Converter {
 public:
  explicit Converter(std::vector<ConvertedInterface::Signal>& signals) : signals_(signals) {}

  // What is in the interface, an object or a child.
  void convert(Element& parent) {
    std::vector<Element> before = std::move(parent.children);
    parent.children.clear();
    for (Element& element : before)
      add(std::move(element), parent);
  }

 private:
  void add(Element element, Element& parent) {
    if (element.name == "requires") {
      element.attributes = {{"lib", "gtk"}, {"version", "4.0"}};
    } else if (element.name == "object") {
      convertObject(element);
    } else if (element.name == "child" && element.attribute("internal-child") == "accessible") {
      element = accessibilityOf(element.children.front());
    } else if (element.name == "child") {
      convertChild(element);
    } else if (element.name == "accessibility") {
      element = relationsOf(element);
    } else if (element.name == "signal") {
      signals_.push_back(
          {parent.attribute("id"), element.attribute("name"), element.attribute("handler")});
      return;
    } else if (element.isProperty("border-width")) {
      for (const char* side : {"margin-start", "margin-end", "margin-top", "margin-bottom"})
        parent.children.push_back(newProperty(side, element.text));
      return;
    }
    parent.children.push_back(std::move(element));
  }

  void convertObject(Element& object) {
    for (auto& [name, value] : object.attributes)
      if (name == "class" && value == "GtkRadioButton") value = "PublishingRadioButton";
    convert(object);
  }

  void convertChild(Element& child) {
    convert(child);
    if (child.children.empty() || child.children.back().name != "packing") return;
    Element layout = layoutOf(child.children.back());
    child.children.pop_back();
    child.children.front().children.push_back(std::move(layout));
  }

  std::vector<ConvertedInterface::Signal>& signals_;
};

// Writing -----------------------------------------------------------------------------------------

void writeEscaped(const std::string& text, std::string& xml) {
  const GlibText escaped(g_markup_escape_text(text.c_str(), -1));
  xml += escaped.get();
}

void write(const Element& element, std::string& xml) {
  xml += "<" + element.name;
  for (const auto& [name, value] : element.attributes) {
    xml += " " + name + "=\"";
    writeEscaped(value, xml);
    xml += "\"";
  }
  xml += ">";
  if (element.children.empty()) writeEscaped(element.text, xml);
  for (const Element& child : element.children)
    write(child, xml);
  xml += "</" + element.name + ">";
}

}  // namespace

std::optional<ConvertedInterface> convertInterface(const char* description, gssize length) {
  std::optional<Element> document = read(description, length);
  if (!document || document->children.empty()) return std::nullopt;
  ConvertedInterface converted;
  Element& interface = document->children.front();
  Converter(converted.signals).convert(interface);
  write(interface, converted.description);
  return converted;
}

}  // namespace publishing
