#include "PlanCellDelegate.h"

#include "PlanTable.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>

namespace {
QColor Mixed(const QColor &ground, const QColor &tint, double share)
{
    const auto mix = [share](qreal from, qreal to) { return from + (to - from) * share; };
    return QColor::fromRgbF(mix(ground.redF(), tint.redF()), mix(ground.greenF(), tint.greenF()),
                            mix(ground.blueF(), tint.blueF()));
}
} // namespace

PlanCellDelegate::PlanCellDelegate(PlanTable *planTable)
    : QStyledItemDelegate(planTable), table(planTable)
{
}

QWidget *PlanCellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &) const
{
    auto *line = new QLineEdit(parent);
    line->setFrame(false);
    line->setAutoFillBackground(true);
    editor = line;
    return line;
}

void PlanCellDelegate::setModelData(QWidget *cellEditor, QAbstractItemModel *,
                                    const QModelIndex &index) const
{
    if (const auto *line = qobject_cast<QLineEdit *>(cellEditor))
        table->TypeCell(index.row(), index.column(), line->text());
}

bool PlanCellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                 const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const bool cut = sizeHint(option, index).width() > option.rect.width();
    if (!cut || event->type() != QEvent::ToolTip || !index.data(Qt::ToolTipRole).isNull())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString plain = index.data().toString().toHtmlEscaped();
    QToolTip::showText(event->globalPos(), QStringLiteral("<span>") + plain, view);
    return true;
}

void PlanCellDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    constexpr double kTintOfCurrentRow = 0.18;
    const bool marked = option->backgroundBrush.style() != Qt::NoBrush;
    const bool current = index.row() == table->currentRow();
    if (!marked && !current)
        return;
    QColor ground = marked ? option->backgroundBrush.color() : option->palette.base().color();
    if (marked) // the marks keep their colour in a dark palette too, so the text follows them
        option->palette.setColor(QPalette::Text, ground.lightness() > 127 ? Qt::black : Qt::white);
    if (current)
        ground = Mixed(ground, option->palette.highlight().color(), kTintOfCurrentRow);
    option->backgroundBrush = ground;
}
