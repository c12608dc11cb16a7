// The page that shows all albums in a folder, as one HTML document beside them. Any thread.
#pragma once

#include <QString>

namespace Gallery {

struct Page {
    QString html;
    /// How many pictures there should be besides those that are there.
    qsizetype missing;
};

/// \param pageTemplate a document with placeholders such as {{ROWS}}.
/// \param folder where albums at the scales 1x and 2x are.
Page pageOf(const QString& pageTemplate, const QString& folder);

} // namespace Gallery
