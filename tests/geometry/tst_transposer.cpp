#include <figura/geometry/Transposer.h>

#include <QTest>

using namespace Velmora::Figura;

class tst_Transposer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void disabledAtFirst();
    void takesAParent();
    void enableAndDisableSwitch();
    void setEnabledSwitchesBothWays();
};

void tst_Transposer::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Transposer::disabledAtFirst()
{
    QVERIFY(!Transposer().isEnabled());
}

void tst_Transposer::takesAParent()
{
    QObject parent;

    QCOMPARE((new Transposer(&parent))->parent(), &parent);
}

void tst_Transposer::enableAndDisableSwitch()
{
    Transposer transposer;

    transposer.enable();
    QVERIFY(transposer.isEnabled());
    transposer.enable();
    QVERIFY(transposer.isEnabled());

    transposer.disable();
    QVERIFY(!transposer.isEnabled());
    transposer.disable();
    QVERIFY(!transposer.isEnabled());
}

void tst_Transposer::setEnabledSwitchesBothWays()
{
    Transposer transposer;

    transposer.setEnabled(true);
    QVERIFY(transposer.isEnabled());

    transposer.setEnabled(false);
    QVERIFY(!transposer.isEnabled());
}

QTEST_APPLESS_MAIN(tst_Transposer)
#include "tst_transposer.moc"
