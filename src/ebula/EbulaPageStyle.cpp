#include "EbulaPageStyle.h"

#include <QFont>

QString EbulaPageStyle(bool dayMode, const QFont &font)
{
    const QString ground =
        dayMode ? QStringLiteral("rgb(255,255,255)") : QStringLiteral("rgb(30,30,30)");
    const QString ink = dayMode ? QStringLiteral("black") : QStringLiteral("white");
    const QString line =
        dayMode ? QStringLiteral("rgb(150,150,150)") : QStringLiteral("rgb(110,110,110)");
    const QString head =
        dayMode ? QStringLiteral("rgb(225,225,225)") : QStringLiteral("rgb(55,55,55)");
    const QString size = QString::number(font.pixelSize());
    const QString box = QString::number(font.pixelSize() * 3 / 4);
    return QStringLiteral(
               "QWidget { background-color: %1; color: %2; font: %6px \"%5\"; }"
               "#WidgetFSD, #WidgetHalte QTableWidget { border: 1px solid %2; }"
               "#label_name, #label_number { font-weight: bold; }"
               "QTableWidget, QTextEdit, QLineEdit { border: 1px solid %3; }"
               "QTableWidget { gridline-color: %3; }"
               "QHeaderView, QHeaderView::section, QTableCornerButton::section {"
               "  background-color: %4; color: %2; border: 0px; }"
               "QHeaderView::section { border-bottom: 1px solid %3; border-right: 1px solid %3;"
               "  padding: 2px 4px; }"
               "QLineEdit { padding: 1px 4px; }"
               "QToolButton { background-color: %4; border: 1px solid %3; padding: 1px 4px; }"
               "QCheckBox::indicator { width: %7px; height: %7px; border: 1px solid %2;"
               "  background-color: %1; }"
               "QCheckBox::indicator:checked { background-color: rgb(0,128,128); }"
               "QScrollBar { background-color: %4; border: 0px; }"
               "QScrollBar:vertical { width: 12px; } QScrollBar:horizontal { height: 12px; }"
               "QScrollBar::handle { background-color: %3; border: 0px; border-radius: 3px;"
               "  margin: 2px; min-height: 16px; min-width: 16px; }"
               "QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }"
               "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
        .arg(ground, ink, line, head, font.family(), size, box);
}
