#pragma once

#include <QImage>
#include <QList>
#include <QString>

namespace Velmora::Figura::Test {

/// The pages of a PDF as another program shows them; none, and a warning, where it cannot.
QList<QImage> pdfPages(const QString &path, int dpi);

} // namespace Velmora::Figura::Test
