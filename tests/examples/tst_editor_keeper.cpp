#include "commands/MoveNodes.h"
#include "editordriver.h"
#include "editorfixtures.h"
#include "files/DocumentFile.h"
#include "panels/ColorButton.h"
#include "window/EditorWindow.h"
#include "window/FileActions.h"
#include "window/Keeper.h"

#include <figura/diagram/DiagramView.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTest>

using namespace Editor;
using namespace Editor::EditorFixtures;
using Velmora::Figura::DiagramView;

class tst_EditorKeeper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_driver.reset(); }

    void savedWorkIsOpenedAgain();
    void theTitleTellsWhatIsUnsaved();
    void unsavedWorkIsAskedAbout_data();
    void unsavedWorkIsAskedAbout();
    void aDamagedFileIsOneMessageAndChangesNothing();
    void damagedFilesNeverLoseTheOpenDocument();
    void aSaveThatFailsLeavesTheWorkUnsaved();
    void recentFilesAreOffered();
    void unsavedWorkIsCopiedForRecovery();
    void recoveredWorkIsUnsavedWork();
    void aDiscardedDocumentLeavesNoCopy();
    void samplesAreOpenedWithoutAFile();
    void whatIsOpenedBeforeTheWindowIsShownFits();
    void theDiagramIsExported_data();
    void theDiagramIsExported();
    void anExportThatFailsIsOneMessage();
    void aDarkWindowExportsForWhitePaper();
    void colorsAndLinesAreChangedInThePanel();
    void spinningIsOneStep();
    void textIsTypedInThePanelAsOneStep();
    void theConnectionIsChangedInThePanel();

private:
    Workbench &bench() { return m_driver->window().bench(); }
    Keeper &keeper() { return m_driver->window().keeper(); }
    QString path(const QString &name) const { return m_driver->path(name); }
    QStringList copies() const;
    void change();
    QMessageBox *message() { return m_driver->window().findChild<QMessageBox *>(); }
    template<class Widget>
    Widget *field(const char *name)
    {
        return m_driver->window().findChild<Widget *>(QLatin1String(name));
    }

    std::unique_ptr<EditorDriver> m_driver;
};

void tst_EditorKeeper::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!.*propagateSizeHints)")));
    m_driver = std::make_unique<EditorDriver>();
}

QStringList tst_EditorKeeper::copies() const
{
    return QDir(m_driver->recoveryFolder()).entryList({QStringLiteral("*.recovery")});
}

void tst_EditorKeeper::change()
{
    bench().push(new MoveNodes(bench().document(), {1}, QPoint(10, 0)));
}

void tst_EditorKeeper::savedWorkIsOpenedAgain()
{
    bench().open(smallContent());
    const QString file = path(QStringLiteral("a.figura"));

    QVERIFY(keeper().saveTo(file));
    QVERIFY(keeper().startNew());
    QVERIFY(bench().document().content().isEmpty());
    QVERIFY(keeper().open(file));

    QCOMPARE(bench().document().content(), smallContent());
    QCOMPARE(keeper().path(), file);
    QVERIFY(!bench().history().canUndo());
}

void tst_EditorKeeper::theTitleTellsWhatIsUnsaved()
{
    EditorWindow &window = m_driver->window();
    bench().open(smallContent());
    QCOMPARE(window.windowTitle(), QStringLiteral("Untitled[*] - Diagram editor"));
    QVERIFY(!window.isWindowModified());

    change();
    QVERIFY(window.isWindowModified());
    keeper().saveTo(path(QStringLiteral("b.figura")));

    QCOMPARE(window.windowTitle(), QStringLiteral("b.figura[*] - Diagram editor"));
    QVERIFY(!window.isWindowModified());
    bench().history().undo();
    QVERIFY(window.isWindowModified());
}

void tst_EditorKeeper::unsavedWorkIsAskedAbout_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saves");
    QTest::newRow("save") << QStringLiteral("Save") << true << true;
    QTest::newRow("discard") << QStringLiteral("Discard") << true << false;
    QTest::newRow("cancel") << QStringLiteral("Cancel") << false << false;
}

void tst_EditorKeeper::unsavedWorkIsAskedAbout()
{
    QFETCH(QString, answer);
    QFETCH(bool, closes);
    QFETCH(bool, saves);
    const QString file = path(QStringLiteral("a.figura"));
    bench().open(smallContent());
    keeper().saveTo(file);
    change();
    const Content changed = bench().document().content();

    EditorDriver::whenAsked(answer);
    QCOMPARE(m_driver->window().close(), closes);

    QCOMPARE(DocumentFile::load(file).content == changed, saves);
    QCOMPARE(bench().document().content(), changed);
}

void tst_EditorKeeper::aDamagedFileIsOneMessageAndChangesNothing()
{
    const QString file = path(QStringLiteral("a.figura"));
    DocumentFile::writeAll(file, "{\"format\":\"figura-diagram\",\"version\":1,\"nodes\":[{}]}");
    bench().open(smallContent());
    change();
    const Content changed = bench().document().content();

    QVERIFY(!keeper().open(file));

    QVERIFY(message());
    QCOMPARE(message()->text(), file + QStringLiteral(": nodes[0].id: missing"));
    QCOMPARE(bench().document().content(), changed);
    QVERIFY(bench().history().canUndo());
    QVERIFY(keeper().path().isEmpty());
}

void tst_EditorKeeper::damagedFilesNeverLoseTheOpenDocument()
{
    const QString file = path(QStringLiteral("a.figura"));
    const QByteArray good = DocumentWriter::write(smallContent());
    bench().open(smallContent());
    change();
    const Content changed = bench().document().content();
    QObject::disconnect(&keeper(), &Keeper::failed, nullptr, nullptr); // a box each would take long

    int refused = 0;
    for (qsizetype length = 0; length < good.size() - 2; length += 7) {
        DocumentFile::writeAll(file, good.left(length));
        refused += !keeper().open(file);
        QCOMPARE(bench().document().content(), changed);
    }

    QVERIFY(refused > 50);
    QCOMPARE(bench().history().count(), 1);
}

void tst_EditorKeeper::aSaveThatFailsLeavesTheWorkUnsaved()
{
    bench().open(smallContent());
    change();

    QVERIFY(!keeper().saveTo(path(QStringLiteral("no/folder/a.figura"))));

    QVERIFY(message());
    QVERIFY(keeper().isModified());
    QVERIFY(keeper().path().isEmpty());
}

void tst_EditorKeeper::recentFilesAreOffered()
{
    bench().open(smallContent());
    keeper().saveTo(path(QStringLiteral("a.figura")));
    keeper().saveTo(path(QStringLiteral("b.figura")));
    keeper().startNew();
    auto *menu = m_driver->window().findChild<QMenu *>(QStringLiteral("recentFiles"));

    Q_EMIT menu->aboutToShow();
    QCOMPARE(menu->actions().size(), 2);
    QCOMPARE(menu->actions().first()->text(), path(QStringLiteral("b.figura")));
    menu->actions().last()->trigger();

    QCOMPARE(keeper().path(), path(QStringLiteral("a.figura")));
}

void tst_EditorKeeper::unsavedWorkIsCopiedForRecovery()
{
    keeper().recovery().setDelay(std::chrono::milliseconds(1));
    bench().open(smallContent());
    QTest::qWait(20);
    QVERIFY(copies().isEmpty()); // there is nothing to lose yet

    change();
    QTRY_COMPARE(copies().size(), 1);
    keeper().saveTo(path(QStringLiteral("a.figura")));

    QVERIFY(copies().isEmpty());
}

void tst_EditorKeeper::recoveredWorkIsUnsavedWork()
{
    Recovery::Found found;
    found.file = path(QStringLiteral("old.recovery"));
    found.origin = path(QStringLiteral("a.figura"));
    found.content = smallContent();
    DocumentFile::writeAll(found.file, "{}");

    keeper().recover(found);

    QCOMPARE(bench().document().content(), smallContent());
    QCOMPARE(keeper().path(), found.origin);
    QVERIFY(keeper().isModified());
    QCOMPARE(copies().size(), 1); // it is safe before the old copy goes
    QVERIFY(!QFile::exists(found.file));
}

void tst_EditorKeeper::aDiscardedDocumentLeavesNoCopy()
{
    keeper().recovery().setDelay(std::chrono::milliseconds(1));
    bench().open(smallContent());
    change();
    QTRY_COMPARE(copies().size(), 1);

    EditorDriver::whenAsked(QStringLiteral("Discard"));
    m_driver->window().close();

    QVERIFY(copies().isEmpty());
}

void tst_EditorKeeper::samplesAreOpenedWithoutAFile()
{
    QVERIFY(keeper().openSample(QStringLiteral("state-machine")));

    QVERIFY(bench().document().nodeOrder().size() > 10);
    QVERIFY(keeper().path().isEmpty());
    QVERIFY(!keeper().isModified());
}

void tst_EditorKeeper::whatIsOpenedBeforeTheWindowIsShownFits()
{
    EditorWindow window(m_driver->settings(), m_driver->recoveryFolder());
    DiagramView *view = window.bench().view();
    QVERIFY(window.keeper().openSample(QStringLiteral("state-machine")));

    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();

    const QRect extent = window.bench().diagram().getExtent();
    QVERIFY(view->getViewRect().contains(extent));
    QVERIFY2(view->getScale() > 0.4, qPrintable(QString::number(view->getScale())));
}

void tst_EditorKeeper::theDiagramIsExported_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("begin");
    QTest::newRow("svg") << QStringLiteral("a.svg") << QByteArray("<?xml");
    QTest::newRow("pdf") << QStringLiteral("a.pdf") << QByteArray("%PDF");
    QTest::newRow("png") << QStringLiteral("a.png") << QByteArray("\x89PNG");
}

void tst_EditorKeeper::theDiagramIsExported()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, begin);
    bench().open(smallContent());

    QCOMPARE(m_driver->window().files().exportTo(path(name), false, false), QString());

    QString problem;
    QVERIFY(DocumentFile::readAll(path(name), &problem).startsWith(begin));
}

void tst_EditorKeeper::anExportThatFailsIsOneMessage()
{
    bench().open(smallContent());

    const QString problem =
        m_driver->window().files().exportTo(path(QStringLiteral("no/folder/a.svg")), false, false);

    QVERIFY(!problem.isEmpty());
    QVERIFY(!problem.contains(QLatin1Char('\n')));
}

void tst_EditorKeeper::aDarkWindowExportsForWhitePaper()
{
    bench().open(smallContent());
    m_driver->window().setDark(true);

    m_driver->window().files().exportTo(path(QStringLiteral("a.png")), false, false);

    const QImage image(path(QStringLiteral("a.png")));
    QCOMPARE(image.pixelColor(2, 2), Theme::light().paper);
    QCOMPARE(&bench().scene().theme(), &Theme::dark());
}

void tst_EditorKeeper::colorsAndLinesAreChangedInThePanel()
{
    bench().open(smallContent());
    bench().selection().set({1, 5});

    Q_EMIT field<ColorButton>("line")->picked(Qt::red);
    field<QSpinBox>("lineWidth")->setValue(4);
    auto *lineStyle = field<QComboBox>("lineStyle");
    lineStyle->setCurrentIndex(1);
    Q_EMIT lineStyle->activated(1);

    for (const Style &style :
         {bench().document().node(1)->style, bench().document().edge(5)->style}) {
        QCOMPARE(style.line, QColor(Qt::red));
        QCOMPARE(style.lineWidth, 4);
        QCOMPARE(style.lineStyle, Qt::DashLine);
    }
    QCOMPARE(bench().document().node(2)->style, Style());
    while (bench().history().canUndo())
        bench().history().undo();
    QCOMPARE(field<QSpinBox>("lineWidth")->value(), 1);
}

void tst_EditorKeeper::spinningIsOneStep()
{
    bench().open(smallContent());
    bench().selection().set({1});

    for (int width = 2; width <= 6; ++width)
        field<QSpinBox>("lineWidth")->setValue(width);
    bench().selection().set({2});
    field<QSpinBox>("lineWidth")->setValue(3);

    QCOMPARE(bench().history().count(), 2);
    QCOMPARE(bench().document().node(1)->style.lineWidth, 6);
}

void tst_EditorKeeper::textIsTypedInThePanelAsOneStep()
{
    bench().open(smallContent());
    bench().selection().set({1});
    auto *text = field<QPlainTextEdit>("text");

    text->setFocus();
    QTest::keyClicks(text, QStringLiteral("typed"));

    QCOMPARE(bench().document().node(1)->text, QStringLiteral("typed"));
    QCOMPARE(bench().history().count(), 1);
    bench().selection().set({4});
    QCOMPARE(text->toPlainText(), QString());
}

void tst_EditorKeeper::theConnectionIsChangedInThePanel()
{
    bench().open(smallContent());
    bench().selection().set({4});
    const auto choose = [this](const char *name, int index) {
        auto *box = field<QComboBox>(name);
        QVERIFY(box->isVisible());
        box->setCurrentIndex(index);
        Q_EMIT box->activated(index);
    };

    choose("routing", 2);
    choose("sourceArrow", 1);
    choose("targetArrow", 3);

    const Edge &edge = *bench().document().edge(4);
    QCOMPARE(edge.routing, Routing::Manhattan);
    QCOMPARE(edge.sourceArrow, Arrow::Open);
    QCOMPARE(edge.targetArrow, Arrow::Diamond);
    QCOMPARE(bench().history().count(), 3);
    bench().selection().set({1});
    QVERIFY(!field<QComboBox>("routing")->isVisible());
}

QTEST_MAIN(tst_EditorKeeper)
#include "tst_editor_keeper.moc"
