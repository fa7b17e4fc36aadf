#include "MtdHelpTable.h"

#include "Numbers.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>

#include <algorithm>

namespace {
constexpr double kTextToRow = 0.72;

/// Flat captions in the page's own colours; a style's header would stand in the desktop's.
class CaptionRow : public QHeaderView
{
public:
    explicit CaptionRow(QWidget *parent) : QHeaderView(Qt::Horizontal, parent) { }

protected:
    void paintSection(QPainter *painter, const QRect &rect, int index) const override
    {
        painter->fillRect(rect, palette().color(QPalette::AlternateBase));
        painter->setPen(palette().color(QPalette::Mid));
        painter->drawLine(rect.bottomLeft(), rect.bottomRight());
        painter->drawLine(rect.topRight(), rect.bottomRight());
        painter->setPen(palette().color(QPalette::Text));
        const QString text = model()->headerData(index, orientation()).toString();
        painter->drawText(rect, static_cast<int>(Qt::AlignCenter), text);
    }
};
} // namespace

MtdHelpTable::MtdHelpTable(QWidget *parent) : QTableWidget(parent)
{
    setHorizontalHeader(new CaptionRow(this));
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setSectionsClickable(false);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void MtdHelpTable::SetCell(int row, int column, const QString &text)
{
    QTableWidgetItem *cell = item(row, column);
    if (cell == nullptr) {
        cell = new QTableWidgetItem;
        setItem(row, column, cell);
    }
    if (cell->text() == text)
        return;
    cell->setText(text);
    cell->setTextAlignment(Qt::AlignCenter);
}

void MtdHelpTable::resizeEvent(QResizeEvent *event)
{
    QTableWidget::resizeEvent(event);
    FitText();
}

void MtdHelpTable::changeEvent(QEvent *event)
{
    QTableWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        FitText();
}

void MtdHelpTable::FitText()
{
    if (rowCount() == 0)
        return;
    const double rowHeight = static_cast<double>(viewport()->height()) / rowCount();
    QFont fitting = font();
    const int natural = QFontInfo(fitting).pixelSize();
    fitting.setPixelSize(std::clamp(TruncToInt(rowHeight * kTextToRow), 1, std::max(1, natural)));
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            if (QTableWidgetItem *cell = item(row, column))
                cell->setFont(fitting);
        }
    }
}
