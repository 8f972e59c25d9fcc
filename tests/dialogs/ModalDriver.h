#ifndef KAMO_TESTS_MODALDRIVER_H
#define KAMO_TESTS_MODALDRIVER_H

#include <QtTest>
#include <QtWidgets>

#include <functional>

// Answers the modal windows that a call opens, one handler per window in
// the order they come; progress dialogs are let be.
class ModalDriver : public QObject
{
public:
    using Handler = std::function<void(QWidget*)>;

    ModalDriver() { startTimer(10); }
    void Expect(const char* className, Handler handler) { steps.append({ className, std::move(handler) }); }
    QStringList Seen() const { return seen; }

private:
    void timerEvent(QTimerEvent*) override
    {
        QWidget* window = QApplication::activeModalWidget();
        if (!window || steps.isEmpty() || !window->inherits(steps.first().first))
            return;
        const auto step = steps.takeFirst();
        seen.append(window->metaObject()->className());
        step.second(window);
    }
    QList<QPair<const char*, Handler>> steps;
    QStringList seen;
};

// The child `name` of `parent`; a missing one ends the test run, since the
// form and the test have parted ways.
template <typename T> T* child(QWidget* parent, const char* name)
{
    T* widget = parent->findChild<T*>(name);
    if (!widget)
        qFatal("no widget %s", name);
    return widget;
}

// A data row's check, called with the row's values.
using RowCheck = std::function<void()>;
Q_DECLARE_METATYPE(RowCheck)

// Begins a _data function whose rows each call `check` with their values,
// and answers what adds a row: its name, then those values.
template <typename... T> auto rowsFor(void (*check)(T...))
{
    QTest::addColumn<RowCheck>("check");
    return [check](const char* name, std::decay_t<T>... values) {
        QTest::newRow(name) << RowCheck([=] { check(values...); });
    };
}

inline void runRow()
{
    QFETCH(RowCheck, check);
    check();
}

const auto rejectDialog = [](QWidget* dialog) { static_cast<QDialog*>(dialog)->reject(); };

inline void pressBox(QWidget* dialog, QDialogButtonBox::StandardButton button)
{
    child<QDialogButtonBox>(dialog, "buttonBox")->button(button)->click();
}

// A button that opens a modal window is pressed from a timer of its own, so
// that the handler pressing it may return first.
inline void pressLater(QWidget* parent, const char* button)
{
    QTimer::singleShot(0, child<QAbstractButton>(parent, button), &QAbstractButton::click);
}

// Answers a file dialog with `path`: a folder chooser goes to the folder, a
// file name is typed, as selectFile() leaves a field with the focus alone;
// an empty path cancels. QFileDialog hides the accept() it overrides, which
// checks the choice as OK does; a choice it refuses is cancelled too.
inline void answerFileDialog(QWidget* chooser, const QString& path)
{
    if (QFileInfo(path).isDir())
        static_cast<QFileDialog*>(chooser)->setDirectory(path);
    else
        child<QLineEdit>(chooser, "fileNameEdit")->setText(path);
    if (!path.isEmpty())
        static_cast<QDialog*>(chooser)->accept();
    if (chooser->isVisible())
        rejectDialog(chooser);
}

// Presses a message box's first button, "OK" or "Yes", and keeps
// "title: text" and its informative text in `told`.
inline ModalDriver::Handler answerMessageBox(QStringList* told)
{
    return [told](QWidget* window) {
        auto* box = static_cast<QMessageBox*>(window);
        told->append(box->windowTitle() + ": " + box->text()
            + (box->informativeText().isEmpty() ? QString() : '\n' + box->informativeText()));
        box->buttons().constFirst()->click();
    };
}

// Presses `button` of `window` and answers the file dialog it opens with
// `path`, then calls `chosen`; returns what a message box that follows told.
inline QString pressAndChoose(
    QWidget* window, const char* button, const QString& path, const std::function<void()>& chosen = {})
{
    QStringList told;
    ModalDriver driver;
    driver.Expect("QFileDialog", [&](QWidget* chooser) {
        answerFileDialog(chooser, path);
        if (chosen)
            chosen();
    });
    driver.Expect("QMessageBox", answerMessageBox(&told));
    child<QAbstractButton>(window, button)->click();
    return told.join('\n');
}

// Every row of `tree`, children after their parent, as the texts of the
// `shown` columns joined with " | ".
inline QStringList treeTexts(QTreeWidget* tree, const QList<int>& shown)
{
    QStringList rows;
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        QStringList texts;
        for (int c : shown)
            texts.append((*it)->text(c));
        rows.append(texts.join(" | ").trimmed());
    }
    return rows;
}

// Writes `bytes` to `path`, making its folder.
inline bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
        && file.write(bytes) == bytes.size();
}

inline QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

#endif
