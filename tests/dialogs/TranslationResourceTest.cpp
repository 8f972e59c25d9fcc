#include <QtTest>

class TranslationResourceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A host installs the German translation straight from the library's
    // resources; they must be there exactly while the library is loaded.
    void germanTranslationComesAndGoesWithTheLibrary()
    {
        const QString resource = QStringLiteral(":/kamo_tools/kamo_tools_de.qm");
        QVERIFY(!QFile::exists(resource));
        QLibrary library(QStringLiteral(KAMO_TOOLS_LIBRARY));
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        QTranslator translator;
        QVERIFY(translator.load(resource));
        QCOMPARE(translator.language(), QStringLiteral("de_DE"));
        QVERIFY(library.unload());
        QVERIFY(!QFile::exists(resource));
    }
};

QTEST_GUILESS_MAIN(TranslationResourceTest)
#include "TranslationResourceTest.moc"
