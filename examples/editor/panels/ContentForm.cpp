#include "panels/ContentForm.h"

#include "commands/ChangeFlow.h"
#include "commands/ChangeText.h"
#include "edit/Operations.h"
#include "edit/Workbench.h"
#include "model/Names.h"

#include <QComboBox>
#include <QFormLayout>
#include <QPlainTextEdit>

namespace Editor {
namespace {

void setRowVisible(QFormLayout *form, QWidget *field, bool visible)
{
    field->setVisible(visible);
    form->labelForField(field)->setVisible(visible);
}

template<class Enum>
void choose(QComboBox *box, Enum value)
{
    box->setCurrentIndex(box->findText(Names::of(value)));
}

} // namespace

template<class Enum>
QComboBox *ContentForm::createChoice(const char *name)
{
    auto *box = new QComboBox(this);
    box->setObjectName(QLatin1String(name));
    for (const Enum value : Names::all<Enum>())
        box->addItem(Names::of(value));
    return box;
}

ContentForm::ContentForm(Workbench &bench, QWidget *parent)
    : QWidget(parent)
    , m_bench(bench)
    , m_form(new QFormLayout(this))
    , m_text(new QPlainTextEdit(this))
    , m_routing(createChoice<Routing>("routing"))
    , m_sourceArrow(createChoice<Arrow>("sourceArrow"))
    , m_targetArrow(createChoice<Arrow>("targetArrow"))
    , m_flow(createChoice<Qt::Orientation>("flow"))
{
    m_form->addRow(tr("Text"), m_text);
    m_form->addRow(tr("Routing"), m_routing);
    m_form->addRow(tr("Begins with"), m_sourceArrow);
    m_form->addRow(tr("Ends with"), m_targetArrow);
    m_form->addRow(tr("Lay out"), m_flow);
    createText();
    createEdgeRows();
    createFlow();
    startSeries();
}

void ContentForm::createText()
{
    m_text->setObjectName(QStringLiteral("text"));
    m_text->setTabChangesFocus(true);
    constexpr int fewLines = 64;
    m_text->setFixedHeight(fewLines);
    m_text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_text, &QPlainTextEdit::textChanged, this, [this] {
        const QList<int> &ids = m_bench.selection().ids();
        if (!m_isRefreshing && ids.size() == 1)
            m_bench.push(
                new ChangeText(m_bench.document(), ids.first(), m_text->toPlainText(), m_series));
    });
}

void ContentForm::createEdgeRows()
{
    connect(m_routing, &QComboBox::activated, this, [this](int index) {
        Operations::setRouting(m_bench, Names::all<Routing>().at(index));
    });
    const auto connectArrow = [this](QComboBox *box, ChangeArrows::End end) {
        connect(box, &QComboBox::activated, this, [this, end](int index) {
            m_bench.push(new ChangeArrows(m_bench.document(), m_bench.selection().edges(), end,
                                          Names::all<Arrow>().at(index)));
        });
    };
    connectArrow(m_sourceArrow, ChangeArrows::End::Source);
    connectArrow(m_targetArrow, ChangeArrows::End::Target);
}

void ContentForm::createFlow()
{
    connect(m_flow, &QComboBox::activated, this, [this](int index) {
        m_bench.push(
            new ChangeFlow(m_bench.document(), lanes(), Names::all<Qt::Orientation>().at(index)));
    });
}

QList<int> ContentForm::lanes() const
{
    QList<int> nodes = m_bench.selection().nodes();
    nodes.removeIf([this](int id) { return m_bench.document().node(id)->kind != NodeKind::Lane; });
    return nodes;
}

void ContentForm::startSeries()
{
    m_series = ChangeElements::newSeries();
}

void ContentForm::refresh()
{
    m_isRefreshing = true;
    showText();
    showEdge();
    showFlow();
    m_isRefreshing = false;
}

void ContentForm::showText()
{
    const QList<int> &ids = m_bench.selection().ids();
    m_text->setEnabled(ids.size() == 1);
    QString text;
    if (const int node = m_bench.selection().singleNode())
        text = m_bench.document().node(node)->text;
    else if (const int edge = m_bench.selection().singleEdge())
        text = m_bench.document().edge(edge)->label;
    if (text != m_text->toPlainText()) // the cursor stays where the user types
        m_text->setPlainText(text);
}

void ContentForm::showEdge()
{
    const QList<int> edges = m_bench.selection().edges();
    for (QComboBox *box : {m_routing, m_sourceArrow, m_targetArrow})
        setRowVisible(m_form, box, !edges.isEmpty());
    if (edges.isEmpty())
        return;
    const Edge &edge = *m_bench.document().edge(edges.first());
    choose(m_routing, edge.routing);
    choose(m_sourceArrow, edge.sourceArrow);
    choose(m_targetArrow, edge.targetArrow);
}

void ContentForm::showFlow()
{
    const QList<int> all = lanes();
    setRowVisible(m_form, m_flow, !all.isEmpty());
    if (!all.isEmpty())
        choose(m_flow, m_bench.document().node(all.first())->flow);
}

} // namespace Editor
