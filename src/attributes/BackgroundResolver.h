#pragma once

#include "Brisko/BackgroundImage.h"
#include "Ondex/StyleValue.h"

#include <QStringList>

#include <vector>

namespace Brisko {

/// Makes the layers to paint from the lists of the background's longhands.
///
///     BackgroundResolver resolver(lists);
///     layers = resolver.layers();
///     clip = resolver.colorClip(clip);
class BackgroundResolver {
public:
    struct Lists {
        QStringList images;
        QStringList clips;
        QStringList origins;
        QList<Ondex::StyleValue> sizes;
        QList<Ondex::StyleValue> repeats;
        QList<Ondex::StyleValue> positions;
    };

    explicit BackgroundResolver(const Lists& lists);

    /// The layers; none where there is one only and that has no image.
    std::vector<BackgroundImage> layers() const;
    /// The box that the colour is clipped to. @param before  the box so far, for a text that names none
    BackgroundImage::Box colorClip(BackgroundImage::Box before) const;

private:
    BackgroundImage resolve(int i) const;

    Lists m_lists;
    std::vector<BackgroundImage> m_resolved;
};

/// Reads one item of "background-position". What has no known form is reported and keeps the defaults of @p layer.
void resolveBackgroundPosition(const Ondex::StyleValue& item, BackgroundImage& layer);

} // namespace Brisko
