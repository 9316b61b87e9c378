// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/InterfaceDescription.h"

#include <QByteArray>
#include <QXmlStreamReader>

#include "base/Translation.h"
#include "shells/qt/QtText.h"

namespace publishing {
namespace {

QString attribute(const QXmlStreamReader& xml, const char* name) {
  return xml.attributes().value(QLatin1String(name)).toString();
}

// The text of the present element, in the user's language where it is meant to be.
QString textOf(QXmlStreamReader& xml) {
  const bool isTranslatable = attribute(xml, "translatable") == "yes";
  const QString text = xml.readElementText();
  return isTranslatable ? shownText(translated(text.toStdString().c_str())) : text;
}

void readPacking(QXmlStreamReader& xml, InterfaceObject& object) {
  while (xml.readNextStartElement()) {
    const QString name = attribute(xml, "name");
    object.packing[name] = textOf(xml);
  }
}

void readStyles(QXmlStreamReader& xml, InterfaceObject& object) {
  while (xml.readNextStartElement()) {
    object.styles.push_back(attribute(xml, "name"));
    xml.skipCurrentElement();
  }
}

void readRelations(QXmlStreamReader& xml, InterfaceObject& object) {
  while (xml.readNextStartElement()) {
    object.relations[attribute(xml, "type")] = attribute(xml, "target");
    xml.skipCurrentElement();
  }
}

InterfaceObject readObject(QXmlStreamReader& xml);

void readChild(QXmlStreamReader& xml, InterfaceObject& parent) {
  const QString role = attribute(xml, "type") + attribute(xml, "internal-child");
  InterfaceObject child;
  while (xml.readNextStartElement()) {
    if (xml.name() == QLatin1String("object")) {
      child = readObject(xml);
    } else if (xml.name() == QLatin1String("packing")) {
      readPacking(xml, child);
    } else {
      xml.skipCurrentElement();
    }
  }
  child.role = role;
  parent.children.push_back(std::move(child));
}

InterfaceObject readObject(QXmlStreamReader& xml) {
  InterfaceObject object;
  object.type = attribute(xml, "class");
  object.id = attribute(xml, "id");
  while (xml.readNextStartElement()) {
    if (xml.name() == QLatin1String("property")) {
      const QString name = attribute(xml, "name");
      object.properties[name] = textOf(xml);
    } else if (xml.name() == QLatin1String("signal")) {
      object.handlers.push_back({attribute(xml, "name"), attribute(xml, "handler")});
      xml.skipCurrentElement();
    } else if (xml.name() == QLatin1String("child")) {
      readChild(xml, object);
    } else if (xml.name() == QLatin1String("style")) {
      readStyles(xml, object);
    } else if (xml.name() == QLatin1String("accessibility")) {
      readRelations(xml, object);
    } else {
      xml.skipCurrentElement();
    }
  }
  return object;
}

}  // namespace

QString InterfaceObject::property(const char* name, const char* otherwise) const {
  const auto found = properties.find(QLatin1String(name));
  return found != properties.end() ? found->second : QLatin1String(otherwise);
}

int InterfaceObject::number(const char* name, int otherwise) const {
  const auto found = properties.find(QLatin1String(name));
  return found != properties.end() ? found->second.toInt() : otherwise;
}

std::optional<std::vector<InterfaceObject>> readInterface(std::string_view description) {
  QXmlStreamReader xml(QByteArray(description.data(), static_cast<int>(description.size())));
  std::vector<InterfaceObject> objects;
  if (xml.readNextStartElement()) {
    while (xml.readNextStartElement()) {
      if (xml.name() == QLatin1String("object")) {
        objects.push_back(readObject(xml));
      } else {
        xml.skipCurrentElement();
      }
    }
  }
  if (!xml.hasError()) return objects;
  g_warning("The interface description cannot be read: line %d: %s",
            static_cast<int>(xml.lineNumber()), xml.errorString().toUtf8().constData());
  return std::nullopt;
}

}  // namespace publishing
