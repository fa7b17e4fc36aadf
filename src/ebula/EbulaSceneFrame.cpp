#include "EbulaGraphicsScene.h"

#include <QFontMetricsF>
#include <QGraphicsLineItem>
#include <QGraphicsProxyWidget>
#include <QGraphicsTextItem>
#include <QPen>
#include <QTextDocument>

#include <algorithm>

/// Takes away everything but the pages, whose widgets would die with their items.
void EbulaGraphicsScene::RemoveOwnItems()
{
    RemoveRows();
    RemoveCursor();
    qDeleteAll(fixedItems);
    fixedItems.clear();
}

QPen EbulaGraphicsScene::LinePen() const
{
    return QPen(Ink(), 0.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

QGraphicsItem *EbulaGraphicsScene::AddLine(double x1, double y1, double x2, double y2)
{
    auto *line = new QGraphicsLineItem(x1, y1, x2, y2);
    line->setPen(LinePen());
    addItem(line);
    return line;
}

/// A text in ink colour. Its document's margin is what puts the text on the middle of its row.
QGraphicsTextItem *EbulaGraphicsScene::AddText(const QString &text, const QFont &font,
                                               const QPointF &at, double margin)
{
    auto *item = new QGraphicsTextItem;
    item->document()->setDocumentMargin(margin);
    item->setFont(font);
    item->setDefaultTextColor(Ink());
    item->setPlainText(text);
    item->setPos(at);
    addItem(item);
    return item;
}

QGraphicsTextItem *EbulaGraphicsScene::AddCentred(const QString &text, const QFont &font,
                                                  const QPointF &at, double centreY)
{
    const double half = QFontMetricsF(font).height() / 2.0;
    QGraphicsTextItem *item = AddText(text, font, at, std::max(0.0, centreY - at.y() - half));
    fixedItems.append(item);
    return item;
}

/// Shows the text in the item's font, made smaller until the item is no wider than `room`. It does
/// not grow again before the next redraw.
void EbulaGraphicsScene::ShowFitted(QGraphicsTextItem *item, const QString &text, int room,
                                    double centreY)
{
    if (item->toPlainText() == text)
        return;
    QFont font = item->font();
    const double textRoom = room - 2.0 * item->document()->documentMargin();
    while (QFontMetricsF(font).horizontalAdvance(text) > textRoom) {
        const int size = font.pixelSize();
        font.setPixelSize(std::max(1, size - 1));
        if (size <= 4)
            break;
    }
    if (font != item->font()) {
        const double half = QFontMetricsF(font).height() / 2.0;
        const double margin = std::max(0.0, centreY - item->y() - half);
        // The text's left edge stays where it was.
        item->moveBy(item->document()->documentMargin() - margin, 0.0);
        item->document()->setDocumentMargin(margin);
        item->setFont(font);
    }
    item->setPlainText(text);
}

void EbulaGraphicsScene::ShowHeader(const QString &text)
{
    ShowFitted(headerItem, text, static_cast<int>(layout.width * 0.25), layout.header / 2.0);
}

void EbulaGraphicsScene::DrawHeaderBand()
{
    const int q = layout.quarter;
    fixedItems.append(AddLine(0.0, layout.headerBottom, layout.width, layout.headerBottom));
    for (int field = 1; field <= 3; ++field)
        fixedItems.append(AddLine(field * q, 0.0, field * q, layout.headerBottom));

    const double half = layout.header * 0.5;
    headerItem = AddCentred(QStringLiteral("Number:"), bigFont, {2.0, -5.0}, half);
    validLabelItem = AddCentred(QStringLiteral("EBula-Karte gültig bis"), smallFont,
                                {q + 2.0, -5.0}, half * 0.5);
    expiryItem = AddCentred(QString(), smallFont, {q + 2.0, half - 5.0}, half * 1.5);
    dateItem = AddCentred(QString(), bigFont, {2.0 * q + 2.0, -5.0}, half);
    clockItem = AddCentred(QStringLiteral("Time"), bigFont, {3.0 * q + 2.0, -5.0}, half);
}

void EbulaGraphicsScene::DrawInfoBand()
{
    const int top = layout.headerBottom;
    const int t = layout.third;
    fixedItems.append(AddLine(0.0, layout.infoBottom, layout.width, layout.infoBottom));
    for (int field = 1; field <= 2; ++field)
        fixedItems.append(AddLine(field * t, top, field * t, layout.infoBottom));

    const double centre = (top + layout.infoBottom) / 2.0;
    speedItem = AddCentred(QStringLiteral("ab km"), smallFont, {10.0, top - 2.0}, centre);
    statusItem = AddCentred(QString(), smallFont, {t + 2.0, top - 2.0}, centre);
    statusItem->setDefaultTextColor(Qt::green);
    nextStopItem = AddCentred(QStringLiteral("Nächster Halt: "), smallFont,
                              {2.0 * t + 2.0, top - 2.0}, centre);
}

void EbulaGraphicsScene::DrawTable()
{
    tableRect = layout.tableRect;
    auto *outline = new QGraphicsRectItem(tableRect);
    outline->setPen(LinePen());
    addItem(outline);
    fixedItems.append(outline);

    const int c = layout.column;
    const int bottom = tableRect.top() + tableRect.height();
    for (const int border : {1, 2, 5, 6})
        fixedItems.append(AddLine(border * c, tableRect.top(), border * c, bottom));
    for (int row = 1; row < rowsPerPage; ++row) {
        const int y = tableRect.top() + row * layout.RowHeight(rowsPerPage);
        fixedItems.append(AddLine(2.0 * c + textInset, y, 5.0 * c - textInset, y));
    }
}

void EbulaGraphicsScene::DrawDelayBox()
{
    const QRectF box = layout.delayBox;
    auto *outline = new QGraphicsRectItem(box);
    outline->setPen(LinePen());
    addItem(outline);
    auto *edge = new QGraphicsLineItem(box.right(), box.top(), box.right(), box.bottom());
    edge->setPen(QPen(Ink(), 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    addItem(edge);
    fixedItems << outline << edge;

    QFont bold = smallFont;
    bold.setWeight(QFont::Bold);
    delayItem =
        AddCentred(QStringLiteral("0min"), bold, {layout.delayTextX, box.top()}, box.center().y());
}
