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
    const bool hasSuffix = name.endsWith('i') || name.endsWith('f');
    if (!name.startsWith(QLatin1String("vec")) || name.size() != (hasSuffix ? 5 : 4))
        return 0;
    const int size = name[3].unicode() - '0';
    return size >= shortestVector && size <= longestVector ? size : 0;
}

} // namespace

bool ParserDriver::knowsFunction(const TokenText& function) {
    const QString name = function.toString().toLower();
    return vectorSize(name) > 0 || isColourFunction(name);
}

StyleValue* ParserDriver::parseFunction(const QString& name, StyleValue* arguments) {
    if (const int size = vectorSize(name)) {
        Trace::warning("%s:%d: %s() is deprecated syntax", m_fileName.toUtf8().constData(), currentLine(),
                       name.toUtf8().constData());
        if (arguments->size() == size && arguments->isUniform() && arguments->isNumber(0))
            return arguments;
        error("incomprehensible arguments for " + name.toUtf8());
    } else if (std::optional<StyleValue> colour = colourFunction(name, *arguments)) {
        *arguments = std::move(*colour);
        return arguments;
    } else {
        Trace::error("Unknown / unimplemented CSS function %s", name.toUtf8().constData());
    }
    release(arguments);
    return nullptr;
}

} // namespace Brisko
