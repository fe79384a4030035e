#pragma once

#include <QLoggingCategory>
#include <QRegularExpression>
#include <QTest>

namespace Velmora::Figura::Test {

/// Figures without bounds are reported as such, again and again.
inline void keepQuietAboutBounds()
{
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
}

/// Lets every warning fail the test but those by which parts report that another one is missing.
inline void failOnUnexpectedWarnings()
{
    const QString missing = QStringLiteral("no owner|no managed widget|no connection|out-of-bound|"
                                           "decoration not a figure|route\\(\\): invalid route|"
                                           "no layout manager");
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!.*(%1))").arg(missing)));
}

} // namespace Velmora::Figura::Test
