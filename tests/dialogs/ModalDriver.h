#ifndef KAMO_TESTS_MODALDRIVER_H
#define KAMO_TESTS_MODALDRIVER_H

#include <QApplication>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>

// Answers the modal windows that a call opens, one handler per window in
// the order they come; progress dialogs are let be.
class ModalDriver : public QObject
{
public:
    using Handler = std::function<void(QWidget*)>;

    ModalDriver()
    {
        connect(&timer, &QTimer::timeout, this, &ModalDriver::poll);
        timer.start(10);
    }
    void Expect(const char* className, Handler handler) { steps.append({ className, std::move(handler) }); }
    QStringList Seen() const { return seen; }

private:
    void poll()
    {
        QWidget* window = QApplication::activeModalWidget();
        if (!window || steps.isEmpty() || !window->inherits(steps.first().className))
            return;
        const Step step = steps.takeFirst();
        seen.append(window->metaObject()->className());
        step.handler(window);
    }

    struct Step {
        const char* className;
        Handler handler;
    };
    QTimer timer;
    QList<Step> steps;
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

#endif
