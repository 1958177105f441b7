#include "Gorvel/Trace.h"
#include "parser/ColourFunctions.h"
#include "parser/ParserDriver.h"

namespace Brisko {

using Gorvel::Trace;
using Ondex::StyleValue;

namespace {

constexpr int shortestVector = 2;
constexpr int longestVector = 4;

// The number of components that vec2 to vec4 with the suffix i, f or none ask for; 0 for any other name.
int vectorSize(const QString& name) {
    for (int size = shortestVector; size <= longestVector; ++size) {
        const QString plain = QStringLiteral("vec%1").arg(size);
        if (name == plain || name == plain + 'i' || name == plain + 'f')
            return size;
    }
    return 0;
}

} // namespace

StyleValue* ParserDriver::parseFunction(const QString& name, std::unique_ptr<StyleValue> arguments) {
    const QByteArray utf8Name = name.toUtf8();
    if (const int size = vectorSize(name)) {
        Trace::warning("%s:%d: %s() is deprecated syntax", m_fileName.toUtf8().constData(), currentLine(),
                       utf8Name.constData());
        if (arguments->size() == size && arguments->isUniform() && arguments->isNumber(0))
            return arguments.release();
        error("incomprehensible arguments for " + utf8Name);
        return nullptr;
    }
    if (const std::optional<StyleValue> colour = colourFunction(name, *arguments))
        return new StyleValue(*colour);
    Trace::error("Unknown / unimplemented CSS function %s", utf8Name.constData());
    return nullptr;
}

} // namespace Brisko
