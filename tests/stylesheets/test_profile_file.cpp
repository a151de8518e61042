// Key by key reading and writing of definition files.
#include "stylesheets/profile_file.h"
#include "test_rows.h"
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace tsl;

namespace {
const QString kSection = QStringLiteral("Tessaline 2");

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

void put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}
} // namespace

class TestProfileFile : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QString path() const { return dir.filePath(QStringLiteral("style.def")); }

  private slots:
    void cleanup() { QFile::remove(path()); }

    void writes_build_a_file_in_the_order_of_first_writes() {
        QVERIFY(WritePrivateProfileString(kSection, "Tag", "H1", path()));
        QVERIFY(WritePrivateProfileString(kSection, "Class", "", path()));
        QVERIFY(WritePrivateProfileString(kSection, "Font1", "Arial Black", path()));
        QCOMPARE(contents(path()),
                 QByteArray("[Tessaline 2]\nTag=H1\nClass=\nFont1=Arial Black\n"));
    }

    void edits_of_existing_files_data() {
        test::columns<QByteArray, QString, QString, QByteArray>(
            {"before", "key", "value", "after"});
        QTest::newRow("a key is updated where it stands")
            << QByteArray("[Tessaline 2]\nTag=H1\nClass=big\nFont1=Arial\n") << "Class"
            << "small" << QByteArray("[Tessaline 2]\nTag=H1\nClass=small\nFont1=Arial\n");
        QTest::newRow("a key matches in another case")
            << QByteArray("[Tessaline 2]\nBdrAllOn=No\nSizeLft=Thin\n") << "BDRALLON"
            << "Yes" << QByteArray("[Tessaline 2]\nBDRALLON=Yes\nSizeLft=Thin\n");
        QTest::newRow("a new key goes to the end of its section, not of the file")
            << QByteArray("[Tessaline 2]\nTag=H1\n\n[Other]\nX=1\n") << "Float"
            << "Left" << QByteArray("[Tessaline 2]\nTag=H1\nFloat=Left\n\n[Other]\nX=1\n");
        QTest::newRow("the section matches in another case")
            << QByteArray("[tessaline 2]\nTag=H1\n") << "Class"
            << "x" << QByteArray("[tessaline 2]\nTag=H1\nClass=x\n");
        QTest::newRow("a missing section goes to the end")
            << QByteArray("[Other]\nX=1\n") << "Tag"
            << "P" << QByteArray("[Other]\nX=1\n[Tessaline 2]\nTag=P\n");
        QTest::newRow("keys of other branches stay")
            << QByteArray("[Tessaline 2]\nBAllOn=No\nSizeLft=Thick\nSizeRt=Thin\n") << "BAllOn"
            << "Yes" << QByteArray("[Tessaline 2]\nBAllOn=Yes\nSizeLft=Thick\nSizeRt=Thin\n");
        QTest::newRow("line ends of the file stay")
            << QByteArray("[Tessaline 2]\r\nTag=H1\r\n") << "Tag"
            << "H2" << QByteArray("[Tessaline 2]\r\nTag=H2\r\n");
        QTest::newRow("a comment is not a key")
            << QByteArray("[Tessaline 2]\n;Tag=old\nTag=H1\n") << "Tag"
            << "H3" << QByteArray("[Tessaline 2]\n;Tag=old\nTag=H3\n");
    }
    void edits_of_existing_files() {
        QFETCH(QByteArray, before);
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(QByteArray, after);
        put(path(), before);
        QVERIFY(WritePrivateProfileString(kSection, key, value, path()));
        QCOMPARE(contents(path()), after);
    }

    void reads_data() {
        test::columns<QByteArray, QString, QString, QString>({"file", "key", "def", "read"});
        QTest::newRow("a value") << QByteArray("[Tessaline 2]\nTag=H1\n") << "Tag"
                                 << ""
                                 << "H1";
        QTest::newRow("a key in another case")
            << QByteArray("[Tessaline 2]\nsmallcaps=Yes\n") << "SmallCaps"
            << "No"
            << "Yes";
        QTest::newRow("blanks around the value are not kept")
            << QByteArray("[Tessaline 2]\nTag =  H1  \n") << "Tag"
            << ""
            << "H1";
        QTest::newRow("blanks inside a key name")
            << QByteArray("[Tessaline 2]\nWhite Space=Pre\n") << "White Space"
            << "Normal"
            << "Pre";
        QTest::newRow("a missing key gives the default")
            << QByteArray("[Tessaline 2]\nTag=H1\n") << "Class"
            << "dflt"
            << "dflt";
        QTest::newRow("a key of another section is not read")
            << QByteArray("[Other]\nTag=H1\n[Tessaline 2]\n") << "Tag"
            << "none"
            << "none";
        QTest::newRow("an empty value is a value")
            << QByteArray("[Tessaline 2]\nClass=\n") << "Class"
            << "dflt"
            << "";
        QTest::newRow("an equals sign in the value")
            << QByteArray("[Tessaline 2]\nImgURL=a.png?x=1\n") << "ImgURL"
            << ""
            << "a.png?x=1";
        QTest::newRow("carriage returns are no part of the value")
            << QByteArray("[Tessaline 2]\r\nTag=H1\r\n") << "Tag"
            << ""
            << "H1";
        QTest::newRow("the first of two equal keys")
            << QByteArray("[Tessaline 2]\nTag=H1\nTAG=H2\n") << "Tag"
            << ""
            << "H1";
    }
    void reads() {
        QFETCH(QByteArray, file);
        QFETCH(QString, key);
        QFETCH(QString, def);
        QFETCH(QString, read);
        put(path(), file);
        QCOMPARE(GetPrivateProfileString(kSection, key, def, path()), read);
    }

    void a_missing_file_gives_the_default_and_stays_missing() {
        QCOMPARE(GetPrivateProfileString(kSection, "Font1", "(None)", path()), QString("(None)"));
        QVERIFY(!QFile::exists(path()));
    }

    void a_read_is_cut_at_254_characters() {
        const QString longValue(300, QLatin1Char('x'));
        QVERIFY(WritePrivateProfileString(kSection, "ImgURL", longValue, path()));
        QCOMPARE(GetPrivateProfileString(kSection, "ImgURL", "", path()), longValue.left(254));
        QVERIFY(WritePrivateProfileString(kSection, "ImgURL", longValue.left(254), path()));
        QCOMPARE(GetPrivateProfileString(kSection, "ImgURL", "", path()).size(), 254);
    }

    void a_write_into_a_missing_folder_fails_and_makes_nothing() {
        const QString inMissing = dir.filePath(QStringLiteral("no/such/style.def"));
        QVERIFY(!WritePrivateProfileString(kSection, "Tag", "H1", inMissing));
        QVERIFY(!QFile::exists(inMissing));
    }

    void a_value_round_trips_with_its_non_ascii_characters() {
        QVERIFY(WritePrivateProfileString(kSection, "Font1", QStringLiteral("Zapf Ärger"), path()));
        QCOMPARE(GetPrivateProfileString(kSection, "Font1", "", path()),
                 QStringLiteral("Zapf Ärger"));
    }
};

QTEST_GUILESS_MAIN(TestProfileFile)
#include "test_profile_file.moc"
