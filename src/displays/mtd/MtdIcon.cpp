#include "MtdIcon.h"

#include "Hairline.h"
#include "Log.h"

#include <QAbstractTextDocumentLayout>
#include <QPixmapCache>
#include <QTextDocument>

#include <algorithm>

namespace {
constexpr int kRim = 2; ///< hairline and one pixel of air

/// The picture in the smaller of its two renderings that has at least the wanted height.
QPixmap Source(const QString &name, int height)
{
    const QPixmap plain(name);
    if (plain.isNull() || plain.height() >= height)
        return plain;
    const QPixmap doubled(name + QStringLiteral("@2x"));
    return doubled.isNull() ? plain : doubled;
}
} // namespace

QPixmap FittedPicture(const QString &name, const QSize &room, double ratio,
                      Qt::TransformationMode mode)
{
    const QSize pixels = (QSizeF(room) * ratio).toSize();
    if (name.isEmpty() || pixels.isEmpty())
        return {};
    const QString key = QStringLiteral("MtdIcon %1 %2 %3 %4")
                            .arg(name)
                            .arg(pixels.width())
                            .arg(pixels.height())
                            .arg(int(mode));
    QPixmap fitted;
    if (QPixmapCache::find(key, &fitted))
        return fitted;
    fitted = Source(name, pixels.height());
    if (fitted.isNull())
        return {};
    fitted.setDevicePixelRatio(1.0);
    if (fitted.size() != fitted.size().scaled(pixels, Qt::KeepAspectRatio))
        fitted = fitted.scaled(pixels, Qt::KeepAspectRatio, mode);
    fitted.setDevicePixelRatio(ratio);
    QPixmapCache::insert(key, fitted);
    return fitted;
}

MtdIcon::MtdIcon(QWidget *parent) : QLabel(parent) { }

bool MtdIcon::ShowPicture(const QString &name, Scaling newScaling)
{
    if (name.isEmpty())
        return ShowText(QString());
    if (picture == name && scaling == newScaling)
        return false;
    picture = name;
    scaling = newScaling;
    Fit();
    return true;
}

bool MtdIcon::ShowText(const QString &newText)
{
    if (picture.isEmpty() && text() == newText)
        return false;
    picture.clear();
    clear(); // setting an empty text over a picture would do nothing
    setText(newText);
    return true;
}

void MtdIcon::Fit()
{
    if (picture.isEmpty())
        return;
    const QSize room = size() - QSize(2 * kRim, 2 * kRim);
    const QPixmap fitted =
        FittedPicture(picture, room, devicePixelRatioF(),
                      scaling == Scaling::Fast ? Qt::FastTransformation : Qt::SmoothTransformation);
    setPixmap(fitted);
    if (scaling == Scaling::Smooth)
        qCDebug(lcDisplays) << "Pixmap NewSize: " << fitted.size();
}

void MtdIcon::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    Fit();
}

void MtdIcon::paintEvent(QPaintEvent *event)
{
    if (Qt::mightBeRichText(text()))
        PaintRichText();
    else
        QLabel::paintEvent(event);
    QPainter painter(this);
    DrawHairline(painter, palette(), rect());
}

/// Rich text names its own sizes, so it fits its cell as a drawing does.
void MtdIcon::PaintRichText()
{
    QTextDocument document;
    document.setDefaultFont(font());
    document.setDocumentMargin(0.0);
    document.setHtml(text());
    document.setTextWidth(document.idealWidth());
    const QSizeF drawn = document.size();
    const QSizeF room = size() - QSize(2 * kRim, 2 * kRim);
    if (drawn.isEmpty() || room.isEmpty())
        return;
    const double scale = std::min(room.width() / drawn.width(), room.height() / drawn.height());
    QPainter painter(this);
    painter.translate(QRectF(rect()).center());
    painter.scale(scale, scale);
    painter.translate(-drawn.width() / 2.0, -drawn.height() / 2.0);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = palette();
    context.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
    document.documentLayout()->draw(&painter, context);
}
