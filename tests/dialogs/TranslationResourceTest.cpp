#include <QFile>
#include <QLibrary>
#include <QTest>
#include <QTranslator>

namespace {
const QString translationResource = QStringLiteral(":/kamo_tools/kamo_tools_de.qm");
}

class TranslationResourceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A host installs the German translation straight from the library's
    // resources; they must be there exactly while the library is loaded.
    void germanTranslationComesAndGoesWithTheLibrary()
    {
        QVERIFY(!QFile::exists(translationResource));

        QLibrary library(QStringLiteral(KAMO_TOOLS_LIBRARY));
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        QVERIFY(QFile::exists(translationResource));
        QTranslator translator;
        QVERIFY(translator.load(translationResource));
        QCOMPARE(translator.language(), QStringLiteral("de_DE"));

        QVERIFY(library.unload());
        QVERIFY(!QFile::exists(translationResource));
    }
};

QTEST_GUILESS_MAIN(TranslationResourceTest)
#include "TranslationResourceTest.moc"
