#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <string>

#include "qt/conversions.h"
#include "qt/font_faces.h"
#include "qt/live_surface.h"
#include "qt/quorvale_box_widget.h"

namespace quorvale::test {

/// A control in a window of its own, and what a test asks of it.
class ShownBox {
public:
    explicit ShownBox(QSize size = QSize(800, 600), const HostOptions& options = {},
                      const WidgetPorts& ports = {})
        : widget_(std::make_unique<QuorvaleBoxWidget>(nullptr, ports)) {
        widget_->setOptions(options);
        box().Font(Font{u"DejaVu Sans Mono", 9});
        box().BackColor(0x80000005);
        box().ForeColor(0x80000008);
        box().BorderStyle(0);
        widget_->resize(size);
        widget_->show();
        (void)QTest::qWaitForWindowExposed(widget_.get());
        settle();
    }

    /// Options as the viewer sets them.
    static HostOptions tall() {
        HostOptions options;
        options.WideScrollBars = true;
        options.TallView = true;
        options.Encoding = Encoding::Automatic;
        return options;
    }

    QuorvaleBoxWidget& widget() { return *widget_; }
    std::unique_ptr<QuorvaleBoxWidget>& owner() { return widget_; }
    QuorvaleBox& box() { return widget_->box(); }
    Surface& elements() { return box().Elements(); }
    LiveSurface& live() { return widget_->liveSurface(); }
    RowsArea& rows() { return live().rows(); }

    /// Shows a file with these bytes.
    void load(const QByteArray& bytes) {
        const QString name = folder_.filePath("shown.txt");
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        widget_->loadFile(name);
        settle();
    }

    /// Lines "row 1" to "row n".
    void loadLines(int count) {
        QByteArray bytes;
        for (int i = 1; i <= count; ++i) bytes += "row " + QByteArray::number(i) + "\n";
        load(bytes);
    }

    /// Lets the surface show what moved.
    void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
    }

    QString row(int slot) { return toQString(elements().lblLine[slot].Caption()); }

    /// What is seen, in the screen's pixels.
    QImage picture() {
        settle();
        return widget_->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    double scale() { return widget_->devicePixelRatioF(); }

    /// The screen's pixels of a row's text: its label without what the strips cover.
    QRect textPixels(int slot) {
        const QRectF label = pixelRect(elements().lblLine[slot]);
        const QRectF seen = label & QRectF(rows().geometry());
        const double left = toPixels(elements().picExpand.Left() + elements().picExpand.Width());
        const double s = scale();
        const QPoint from(qRound(std::max(left, seen.left()) * s), qRound(seen.top() * s));
        const QPoint to(qRound(seen.right() * s) - 1, qRound(seen.bottom() * s) - 1);
        return {from, to};
    }

private:
    QTemporaryDir folder_;
    std::unique_ptr<QuorvaleBoxWidget> widget_;
};

/// Columns of a picture's part that hold anything but the ground, counted from its left edge.
inline QList<int> inkColumns(const QImage& picture, QRect part, QRgb ground) {
    QList<int> columns;
    for (int x = part.left(); x <= part.right(); ++x) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            if (picture.pixel(x, y) == ground) continue;
            columns << x - part.left();
            break;
        }
    }
    return columns;
}

}  // namespace quorvale::test
