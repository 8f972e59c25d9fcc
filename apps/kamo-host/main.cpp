#include "MainWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCommandLineParser>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QPointer>
#include <QProgressDialog>
#include <QSettings>
#include <QStandardPaths>
#include <QTextStream>
#include <QTimer>
#include <QTranslator>

namespace {

QTextStream& err()
{
    static QTextStream stream(stderr);
    return stream;
}

// The library's translation is a resource the library registers when it is
// loaded; Qt's own covers the standard buttons and file dialogs.
void installTranslations(QApplication& app, const QString& language)
{
    auto* tools = new QTranslator(&app);
    if (tools->load(QStringLiteral(":/kamo_tools/kamo_tools_%1.qm").arg(language)))
        app.installTranslator(tools);
    else
        err() << QStringLiteral("kamo-host: no translation of the tools for \"%1\"").arg(language) << Qt::endl;
    auto* qt = new QTranslator(&app);
    if (qt->load(QStringLiteral("qtbase_%1").arg(language), QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        app.installTranslator(qt);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kamo-host"));
    QApplication::setApplicationDisplayName(QStringLiteral("Kamo Demo"));
    QApplication::setApplicationVersion(QStringLiteral(KAMO_HOST_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Demo host for the kamo_tools library: shows a project and opens "
                                                    "the library's tools on it."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("project-folder"),
        QStringLiteral("Folder with Projekt.json; default: the project opened last."),
        QStringLiteral("[project-folder]"));
    const QCommandLineOption settingsOption(QStringLiteral("settings"),
        QStringLiteral("Settings file (INI) instead of the user's kamo-host.ini."), QStringLiteral("FILE"));
    const QCommandLineOption languageOption(
        QStringLiteral("lang"), QStringLiteral("Language of the tools, e.g. de."), QStringLiteral("LANGUAGE"));
    const QCommandLineOption screenshotOption(QStringLiteral("screenshot"),
        QStringLiteral("Save a PNG image of the window to FILE and quit."), QStringLiteral("FILE"));
    const QCommandLineOption toolOption(QStringLiteral("open"),
        QStringLiteral("Open a tool of the Werkzeuge menu at start: node-tools, shape-import or dxf-tools. "
                       "With --screenshot, the tool's dialog is saved instead of the window."),
        QStringLiteral("TOOL"));
    const QCommandLineOption clickOption(QStringLiteral("click"),
        QStringLiteral("With --open and --screenshot: press the tool's button NAME (its object name, e.g. btnPreview) "
                       "and save the window it opens instead."),
        QStringLiteral("NAME"));
    const QCommandLineOption chooseOption(QStringLiteral("choose"),
        QStringLiteral("With --click: answer the folder chooser the button opens with FOLDER."),
        QStringLiteral("FOLDER"));
    parser.addOptions({ settingsOption, languageOption, screenshotOption, toolOption, clickOption, chooseOption });
    parser.process(app);

    if (parser.positionalArguments().size() > 1) {
        err() << QStringLiteral("kamo-host: at most one project folder") << Qt::endl;
        return 2;
    }
    if (parser.isSet(languageOption))
        installTranslations(app, parser.value(languageOption));

    const QString settingsPath = parser.isSet(settingsOption)
        ? parser.value(settingsOption)
        : QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/kamo-host.ini");
    QSettings settings(settingsPath, QSettings::IniFormat);

    MainWindow window(&settings);
    window.RestoreWindowState();

    const QString screenshot = parser.value(screenshotOption);
    QString folder = parser.positionalArguments().value(0);
    // Pointing at the description itself is as good as pointing at its folder.
    if (QFileInfo(folder).isFile())
        folder = QFileInfo(folder).absolutePath();

    if (folder.isEmpty()) {
        // A last project that has gone away since is no reason to complain.
        const QString last = window.LastProject();
        if (!last.isEmpty())
            window.LoadProject(last);
    } else if (!screenshot.isEmpty()) {
        QString error;
        if (!window.LoadProject(folder, &error)) {
            err() << QStringLiteral("kamo-host: %1").arg(error) << Qt::endl;
            return 1;
        }
    }
    window.show();

    const QString tool = parser.value(toolOption);
    if (!screenshot.isEmpty()) {
        int result = 1;
        const auto save = [&](QWidget* widget) {
            if (widget->grab().save(screenshot, "PNG"))
                result = 0;
            else
                err() << QStringLiteral("kamo-host: cannot write %1").arg(QDir::toNativeSeparators(screenshot))
                      << Qt::endl;
        };
        // Grabbed from the event loop, once the window has been laid out. A
        // tool's dialog runs its own loop: a timer grabs and closes it there.
        QTimer::singleShot(200, &window, [&]() {
            if (!tool.isEmpty()) {
                QTimer poll;
                const QString click = parser.value(clickOption);
                QPointer<QDialog> toolDialog;
                QObject::connect(&poll, &QTimer::timeout, [&]() {
                    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                    // A progress window comes and goes on its own.
                    if (!dialog || qobject_cast<QProgressDialog*>(dialog))
                        return;
                    if (!click.isEmpty() && !toolDialog) {
                        toolDialog = dialog;
                        auto* button = dialog->findChild<QAbstractButton*>(click);
                        if (!button) {
                            err() << QStringLiteral("kamo-host: no button \"%1\"").arg(click) << Qt::endl;
                            poll.stop();
                            dialog->reject();
                            return;
                        }
                        // Pressed from the loop: the window it opens runs its own.
                        QTimer::singleShot(0, button, &QAbstractButton::click);
                        return;
                    }
                    if (dialog == toolDialog)
                        return;
                    if (auto* chooser = qobject_cast<QFileDialog*>(dialog); chooser && parser.isSet(chooseOption)) {
                        // A folder chooser takes the folder it shows.
                        chooser->setDirectory(parser.value(chooseOption));
                        static_cast<QDialog*>(chooser)->accept();
                        return;
                    }
                    poll.stop();
                    save(dialog);
                    dialog->reject();
                    if (toolDialog)
                        QTimer::singleShot(0, toolDialog.data(), &QDialog::reject);
                });
                poll.start(300);
                if (!window.RunTool(tool))
                    err() << QStringLiteral("kamo-host: cannot open the tool \"%1\"").arg(tool) << Qt::endl;
            } else {
                save(&window);
            }
            window.close();
        });
        app.exec();
        return result;
    }
    if (!folder.isEmpty())
        window.OpenProject(folder);
    if (!tool.isEmpty())
        QTimer::singleShot(0, &window, [&]() { window.RunTool(tool); });
    return app.exec();
}
