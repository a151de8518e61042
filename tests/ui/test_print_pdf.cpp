// The Source view printed for real: through the toolkit's printer into a PDF, read back with
// pdftotext. Every character comes once and in order, and the text stands one inch in from
// the paper's edges.
#include "editor/text_pane.h"
#include "print/print_pane_text.h"
#include "test_rows.h"
#include "ui/desktop/qt_printer.h"
#include <QFile>
#include <QPageLayout>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
QString run(const QString& program, const QStringList& arguments) {
    const QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty()) qFatal("%s is missing: run scripts/install-deps.sh", qPrintable(program));
    QProcess process;
    process.start(path, arguments);
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString withoutBlanks(QString text) {
    return text.remove(QRegularExpression(QStringLiteral("\\s")));
}

// Lines of numbered words, long enough to wrap and to fill several pages.
QString severalPages() {
    QString text;
    for (int i = 0; i < 220; ++i) {
        text += QStringLiteral("%1:").arg(i, 3, 10, QChar(u'0'));
        for (int w = 0; w < i % 23; ++w)
            text += QStringLiteral(" w%1x%2").arg(i).arg(w);
        text += u'\n';
        if (i % 31 == 0) text += u'\n';
    }
    return text;
}
} // namespace

class PrintPdfTest : public QObject {
    Q_OBJECT

  private slots:
    void sourceTextToPdf_data() {
        columns<int, QString>({"size", "name"});
        QTest::newRow("Letter") << int(QPageSize::Letter) << "612 x 792";
        QTest::newRow("A4") << int(QPageSize::A4) << "595 x 842";
    }
    void sourceTextToPdf() {
        QFETCH(int, size);
        QFETCH(QString, name);
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("out.pdf"));
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(pdf);
        printer->setPageSize(QPageSize(QPageSize::PageSizeId(size)));
        // A printable area that begins a quarter of an inch from the edge.
        printer->setPageMargins(QMarginsF(18, 18, 18, 18), QPageLayout::Point);
        QtPrinterDevice device(std::move(printer));
        QCOMPARE(DrawingRect(device, 1440, 1440, 1440, 1440).left, 1080);

        TextPane pane;
        const QString text = severalPages();
        pane.setText(text);
        pane.setFontName(QStringLiteral("DejaVu Sans Mono"));
        pane.setFontSize(11);
        PrintPaneText(pane, device, 1440, 1440, 1440, 1440);
        // A copy to look at, when asked for.
        if (const QString keep = qEnvironmentVariable("TESSALINE_KEEP_PDF"); !keep.isEmpty())
            QFile::copy(pdf, keep + QStringLiteral("-") + QTest::currentDataTag() +
                                 QStringLiteral(".pdf"));

        const QString info = run(QStringLiteral("pdfinfo"), {pdf});
        QVERIFY2(info.contains(QRegularExpression(QStringLiteral("Page size:\\s+") + name)),
                 qPrintable(info));
        const int pages =
            QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(info).captured(1).toInt();
        QVERIFY2(pages >= 3, qPrintable(info));

        // Every character, once and in order, page after page.
        QString all;
        for (int p = 1; p <= pages; ++p)
            all += run(QStringLiteral("pdftotext"),
                       {QStringLiteral("-f"), QString::number(p), QStringLiteral("-l"),
                        QString::number(p), QStringLiteral("-layout"), pdf, QStringLiteral("-")});
        QCOMPARE(withoutBlanks(all), withoutBlanks(text));

        // The words stand inside one-inch margins of the paper (72 points), the left edge of
        // the text right on it.
        const QString boxes =
            run(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
        const QRegularExpression word(QStringLiteral(
            "<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\""));
        const QRegularExpression pageSize(
            QStringLiteral("<page width=\"([\\d.]+)\" height=\"([\\d.]+)\""));
        const auto page = pageSize.match(boxes);
        const double width = page.captured(1).toDouble(), height = page.captured(2).toDouble();
        double left = 1e9, top = 1e9, right = 0, bottom = 0;
        for (auto it = word.globalMatch(boxes); it.hasNext();) {
            const auto m = it.next();
            left = std::min(left, m.captured(1).toDouble());
            top = std::min(top, m.captured(2).toDouble());
            right = std::max(right, m.captured(3).toDouble());
            bottom = std::max(bottom, m.captured(4).toDouble());
        }
        QVERIFY2(qAbs(left - 72) < 1.5, qPrintable(QString::number(left)));
        QVERIFY2(top >= 71 && top < 80, qPrintable(QString::number(top)));
        QVERIFY2(right <= width - 72 + 0.5, qPrintable(QString::number(right)));
        QVERIFY2(right > width - 72 - 40, qPrintable(QString::number(right))); // lines wrap there
        QVERIFY2(bottom <= height - 72 + 0.5, qPrintable(QString::number(bottom)));
        QVERIFY2(bottom > height - 72 - 40, qPrintable(QString::number(bottom))); // pages fill
    }
};

QTEST_MAIN(PrintPdfTest)
#include "test_print_pdf.moc"
