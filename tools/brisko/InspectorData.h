#pragma once

#include "JsonWriter.h"
#include "MessageLog.h"
#include "StyledScene.h"

#include <QRectF>

namespace Command {

/// What the inspector page shows its scene by.
struct InspectorPicture {
    QByteArray url; ///< "data:..."
    QRectF shown;   ///< where it lies, in the coordinates of the root
};

/// Writes all that the inspector page shows:
///     {"scene": "scene.xml", "version": "0.1.0", "picture": {"url": "data:...", "place": [x, y, width, height]},
///      "messages": [{"level": "error", "text": "...", "file": "main.css", "line": 3, "times": 2}, ...],
///      "nodes": [NODE, ...in document order], members of InspectorTables, "sources": [...]}
///     NODE {"depth": 0, "type": TEXT, "id": TEXT, "classes": LIST, "pseudoClasses": LIST, "at": [x, y],
///           "boxes": [content x0, y0, x1, y1, padding ..., border ..., margin ...], "set": LIST, "defaults": LIST,
///           "contests": LIST, "transitions": [TEXT, duration, delay, ...]}
/// What is empty is left out of a node; LIST is a place in the lists of the tables and TEXT one in the texts.
void writeInspectorData(JsonWriter& json, const StyledScene& scene, const QByteArray& sceneFile,
                        const InspectorPicture& picture, const MessageLog& log);

} // namespace Command
