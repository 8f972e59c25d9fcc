#include <Vex.h>

#include <QProcess>
#include <QTest>

class VexTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The operation log names who ran a tool; it must be the account the
    // process runs as, whatever the environment claims.
    void currentUserNameIsTheEffectiveAccount()
    {
        QProcess id;
        id.start(QStringLiteral("id"), { QStringLiteral("-un") });
        if (!id.waitForFinished() || id.exitCode() != 0)
            QSKIP("no 'id' command");
        const QString expected = QString::fromLocal8Bit(id.readAllStandardOutput()).trimmed();
        qputenv("USER", "someone-else");
        QCOMPARE(Vex::GetCurrentUserName(), expected);
    }
};

QTEST_GUILESS_MAIN(VexTest)
#include "VexTest.moc"
