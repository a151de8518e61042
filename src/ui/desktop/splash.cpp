#include "ui/desktop/splash.h"
#include <QLinearGradient>
#include <QPainter>

namespace tsl {

QPixmap splashPicture() {
    QPixmap picture(420, 220);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, picture.height());
    sky.setColorAt(0, QColor(34, 64, 120));
    sky.setColorAt(1, QColor(18, 32, 64));
    painter.fillRect(picture.rect(), sky);
    painter.setPen(Qt::white);
    QFont title = painter.font();
    title.setPixelSize(44);
    title.setBold(true);
    painter.setFont(title);
    painter.drawText(QRect(0, 50, picture.width(), 60), Qt::AlignCenter,
                     QStringLiteral("Tessaline"));
    QFont line = painter.font();
    line.setPixelSize(15);
    line.setBold(false);
    painter.setFont(line);
    painter.setPen(QColor(200, 215, 240));
    painter.drawText(QRect(0, 115, picture.width(), 30), Qt::AlignCenter,
                     QStringLiteral("Hand-written web pages and style sheets"));
    return picture;
}

} // namespace tsl
