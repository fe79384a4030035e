#include "panels/StyleForm.h"

#include "edit/Workbench.h"
#include "model/Names.h"
#include "panels/ColorButton.h"

#include <QCheckBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QSpinBox>

namespace Editor {
namespace {

template<class Widget>
Widget *named(Widget *widget, const char *name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

StyleForm::StyleForm(Workbench &bench, QWidget *parent)
    : QWidget(parent)
    , m_bench(bench)
    , m_fill(named(new ColorButton(this), "fill"))
    , m_line(named(new ColorButton(this), "line"))
    , m_text(named(new ColorButton(this), "textColor"))
    , m_lineWidth(named(new QSpinBox(this), "lineWidth"))
    , m_lineStyle(named(new QComboBox(this), "lineStyle"))
    , m_family(named(new QFontComboBox(this), "fontFamily"))
    , m_size(named(new QSpinBox(this), "fontSize"))
    , m_bold(named(new QCheckBox(tr("Bold"), this), "bold"))
    , m_italic(named(new QCheckBox(tr("Italic"), this), "italic"))
{
    auto *form = new QFormLayout(this);
    form->addRow(tr("Fill"), m_fill);
    form->addRow(tr("Line"), m_line);
    form->addRow(tr("Line width"), m_lineWidth);
    form->addRow(tr("Line style"), m_lineStyle);
    form->addRow(tr("Text colour"), m_text);
    form->addRow(tr("Font"), m_family);
    form->addRow(tr("Size"), m_size);
    form->addRow(QString(), m_bold);
    form->addRow(QString(), m_italic);
    createColors();
    createLine();
    createFont();
    startSeries();
}

void StyleForm::createColors()
{
    const auto connectColor = [this](ColorButton *button, QColor Style::*member) {
        connect(button, &ColorButton::picked, this, [this, member](const QColor &color) {
            startSeries();
            change([member, color](Style &style) { style.*member = color; });
        });
    };
    connectColor(m_fill, &Style::fill);
    connectColor(m_line, &Style::line);
    connectColor(m_text, &Style::text);
}

void StyleForm::createLine()
{
    m_lineWidth->setRange(1, Style::largestLineWidth);
    connect(m_lineWidth, &QSpinBox::valueChanged, this,
            [this](int width) { change([width](Style &style) { style.lineWidth = width; }); });
    const QList<Qt::PenStyle> styles = Names::all<Qt::PenStyle>();
    for (const Qt::PenStyle style : styles)
        m_lineStyle->addItem(Names::of(style), static_cast<int>(style));
    connect(m_lineStyle, &QComboBox::activated, this, [this, styles](int index) {
        change([pen = styles.at(index)](Style &style) { style.lineStyle = pen; });
    });
}

void StyleForm::createFont()
{
    m_family->setMinimumContentsLength(8);
    m_family->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_size->setRange(Style::smallestFont, Style::largestFont);
    connect(m_family, &QComboBox::textActivated, this, [this](const QString &family) {
        change([family](Style &style) { style.fontFamily = family; });
    });
    connect(m_size, &QSpinBox::valueChanged, this,
            [this](int size) { change([size](Style &style) { style.fontSize = size; }); });
    connect(m_bold, &QCheckBox::clicked, this,
            [this](bool on) { change([on](Style &style) { style.bold = on; }); });
    connect(m_italic, &QCheckBox::clicked, this,
            [this](bool on) { change([on](Style &style) { style.italic = on; }); });
}

void StyleForm::startSeries()
{
    m_series = ChangeElements::newSeries();
}

void StyleForm::change(const ChangeStyle::Change &change)
{
    if (!m_isRefreshing && !m_bench.selection().isEmpty())
        m_bench.push(
            new ChangeStyle(m_bench.document(), m_bench.selection().ids(), change, m_series));
}

void StyleForm::refresh()
{
    const QList<int> &ids = m_bench.selection().ids();
    setEnabled(!ids.isEmpty());
    const Node *node = m_bench.document().node(ids.value(0));
    const Edge *edge = m_bench.document().edge(ids.value(0));
    m_isRefreshing = true;
    show(node ? node->style : edge ? edge->style : Style());
    m_isRefreshing = false;
}

void StyleForm::show(const Style &style)
{
    m_fill->setColor(style.fill);
    m_line->setColor(style.line);
    m_text->setColor(style.text);
    m_lineWidth->setValue(style.lineWidth);
    m_lineStyle->setCurrentIndex(m_lineStyle->findData(static_cast<int>(style.lineStyle)));
    m_family->setCurrentFont(style.fontFamily.isEmpty() ? font() : QFont(style.fontFamily));
    m_size->setValue(style.fontSize);
    m_bold->setChecked(style.bold);
    m_italic->setChecked(style.italic);
}

} // namespace Editor
