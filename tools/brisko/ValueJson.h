#pragma once

#include "Brisko/Declaration.h"
#include "Brisko/Selector.h"
#include "JsonWriter.h"
#include "MessageLog.h"

#include <QStringList>

namespace Command {

void writeValue(JsonWriter& json, const Ondex::StyleValue& value);
/// Premultiplied red, green, blue and alpha.
void writeColor(JsonWriter& json, const Gorvel::ColorPMA& color);
void writeCompound(JsonWriter& json, const Brisko::SimpleSelector& compound);
/// The compounds from left to right.
void writeSelector(JsonWriter& json, const Brisko::Selector& selector);
void writeDeclaration(JsonWriter& json, const Brisko::Declaration& declaration, const QString& source);
void writeTexts(JsonWriter& json, const QStringList& texts);
void writeMessages(JsonWriter& json, const std::vector<Message>& messages);
/// The members "files" and "messages" of an object.
void writeFilesAndMessages(JsonWriter& json, const QStringList& files, const std::vector<Message>& messages);

} // namespace Command
