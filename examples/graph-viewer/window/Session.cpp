#include "Session.h"

#include "GraphView.h"
#include "scene/GraphScene.h"

#include <QApplication>
#include <QImageWriter>
#include <QTimer>

#include <cstdio>

namespace GraphViewer {
namespace {

// Short waits look better without a window that flashes up empty.
constexpr std::chrono::milliseconds patience{400};

constexpr QSize smallestPicture(640, 480);
constexpr QSize largestPicture(1600, 1200);

void printLine(const QString &text)
{
    std::fprintf(stderr, "graph-viewer: %s\n", qPrintable(text));
}

} // namespace

Session::Session(const CommandLine &commandLine)
    : m_commandLine(commandLine)
{
    m_window.layoutProcess().setTimeLimit(commandLine.timeLimit);
    m_window.setEngine(commandLine.engine);
    m_window.setRouting(commandLine.routing);
    connect(&m_window, &GraphWindow::opened, this, &Session::handleOpened);
    connect(&m_window, &GraphWindow::failed, this, &Session::handleFailure);
}

int Session::run()
{
    QTimer::singleShot(0, this, &Session::start);
    const int result = QApplication::exec();
    return result != 0 ? result : m_result;
}

void Session::start()
{
    if (m_commandLine.file.isEmpty()) {
        m_window.show();
        return;
    }
    if (m_commandLine.picture.isEmpty())
        QTimer::singleShot(patience, &m_window, &QWidget::show);
    m_window.openFile(m_commandLine.file);
}

void Session::handleOpened()
{
    // Files that are opened later are between the user and the window.
    m_window.disconnect(this);
    if (m_commandLine.picture.isEmpty())
        m_window.show();
    else
        renderPicture();
}

// With a window up the user is reading its message and may go on; we still end as failed.
void Session::handleFailure(const QString &message)
{
    printLine(message);
    m_result = 1;
    if (!m_window.isVisible())
        QApplication::exit(1);
}

void Session::renderPicture()
{
    resizeToGraph();
    m_window.show();
    QApplication::processEvents(); // as many resizes and layouts as it takes
    m_window.view()->showAll();
    QImageWriter writer(m_commandLine.picture);
    const bool written = writer.write(m_window.grab().toImage());
    if (!written)
        printLine(QStringLiteral("%1: %2").arg(m_commandLine.picture, writer.errorString()));
    QApplication::exit(written ? 0 : 1);
}

void Session::resizeToGraph()
{
    constexpr QSize chrome(60, 140);
    const QSize wanted = m_window.view()->scene()->area().size() + chrome;
    m_window.resize(wanted.expandedTo(smallestPicture).boundedTo(largestPicture));
}

} // namespace GraphViewer
