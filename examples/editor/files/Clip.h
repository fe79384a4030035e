#pragma once

#include "model/Content.h"

#include <QHash>

class QMimeData;

namespace Editor {

class Document;

/// Parts of documents on their way through the clipboard, or to another place of the same document.
namespace Clip {

inline const QString mimeType = QStringLiteral("application/x-figura-diagram");

/// The chosen nodes, what is in chosen lanes, and the edges between them; \a rects are where nodes
/// in lanes are shown. An edge alone cannot be copied: it has no ends.
Content copied(const Document &document, const QList<int> &ids, const QHash<int, QRect> &rects);

void write(QMimeData *data, const Content &content);
bool isIn(const QMimeData *data);

/// Empty when there is none, or when it is damaged.
Content read(const QMimeData *data);

/// The same with new ids of \a document, moved by \a offset.
Content renewed(Content content, Document &document, const QPoint &offset);

} // namespace Clip

} // namespace Editor
