#include "KeyBlock.h"

#include <QResizeEvent>

#include <algorithm>

namespace {
constexpr int kColumns = 3;
constexpr int kRows = 4;
constexpr int kGap = 4;
} // namespace

void KeyBlock::resizeEvent(QResizeEvent *event)
{
    const QSize area = event->size();
    const int side = std::min((area.width() - (kColumns - 1) * kGap) / kColumns,
                              (area.height() - (kRows - 1) * kGap) / kRows);
    int at = 0;
    for (QWidget *key : findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        const QPoint cell(at % kColumns, at / kColumns);
        key->setGeometry(QRect(cell * (side + kGap), QSize(side, side)));
        ++at;
    }
}
