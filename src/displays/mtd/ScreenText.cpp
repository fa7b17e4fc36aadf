#include "ScreenText.h"

#include "ControlLight.h"
#include "MtdChoice.h"
#include "MtdDigitBox.h"
#include "ValueBar.h"

#include <QLineEdit>
#include <QTableWidget>

#include <algorithm>

namespace {
/// Everything derived from a label draws its own scale, except for the lamp and the digit.
bool IsPlainText(const QWidget *widget)
{
    if (qobject_cast<const ValueBar *>(widget->parent()) != nullptr)
        return false;
    return widget->metaObject() == &QLabel::staticMetaObject
        || qobject_cast<const MtdDigitBox *>(widget) != nullptr
        || qobject_cast<const MtdChoice *>(widget) != nullptr
        || qobject_cast<const ControlLight *>(widget) != nullptr
        || qobject_cast<const QLineEdit *>(widget) != nullptr
        || qobject_cast<const QTableWidget *>(widget) != nullptr;
}

constexpr double kBarHeight = 300.0; // units of its drawing
} // namespace

void ScreenText::Take(QWidget *page)
{
    const auto widgets = page->findChildren<QWidget *>();
    for (QWidget *each : widgets) {
        if (IsPlainText(each) && each->font().pointSizeF() > 0.0)
            designed.insert(each, each->font().pointSizeF());
    }
    const auto bars = page->findChildren<ValueBar *>();
    for (ValueBar *each : bars) {
        each->installEventFilter(this);
        FitValueBox(each);
    }
}

bool ScreenText::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        if (const auto *bar = qobject_cast<ValueBar *>(watched))
            FitValueBox(bar);
    }
    return QObject::eventFilter(watched, event);
}

void ScreenText::SetPointSize(QWidget *widget, double pointSize)
{
    designed.insert(widget, pointSize);
    Apply(widget, pointSize);
}

void ScreenText::Grow(double newFactor)
{
    newFactor = std::max(1.0, newFactor);
    if (qFuzzyCompare(newFactor, factor))
        return;
    factor = newFactor;
    for (auto each = designed.cbegin(); each != designed.cend(); ++each)
        Apply(each.key(), each.value());
}

void ScreenText::Apply(QWidget *widget, double pointSize) const
{
    QFont font = widget->font();
    font.setPointSizeF(pointSize * factor);
    if (font != widget->font())
        widget->setFont(font);
}

void ScreenText::SetBarRange(ValueBar *bar, int min, int max)
{
    if (bar->minValue == min && bar->maxValue == max)
        return;
    bar->setRange(min, max);
    FitValueBox(bar);
}

/// The bar lays its box out for its own font, which is in units of its drawing. The gap under the
/// bar grows with the drawing, and the box with it.
void ScreenText::FitValueBox(const ValueBar *bar)
{
    const double scale = std::max(1.0, bar->height() / kBarHeight);
    const QFontMetrics drawn(bar->font());
    const int widest = std::max({drawn.horizontalAdvance(QString::number(bar->minValue)),
                                 drawn.horizontalAdvance(QString::number(bar->maxValue)),
                                 drawn.horizontalAdvance(QStringLiteral("-000"))});
    const int wide = widest + 2 * drawn.averageCharWidth();
    QFont font = bar->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    bar->valueLabel->setFont(font);
    bar->valueLabel->resize(qRound(wide * scale), qRound((drawn.height() + 4) * scale));
}
