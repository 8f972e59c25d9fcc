#include "ModalDriver.h"

#include <Kamo_view/NodeInfo.h>
#include <dialogs/DialogDxfTools.h>
#include <dialogs/DialogImportShapeFile.h>
#include <dialogs/DialogNodeTools.h>

namespace {

enum class Order { HostWidgetFirst, FacadeFirst, CopyOutlivesOriginal, CopiesAfterHostWidget };

QMap<int, NodeInfo*> noNodes;

// The facade as a host constructs it; its dialog writes its geometry to
// `settings` when it goes, whoever deletes it.
template <typename Facade> Facade* make(QWidget* parent, QSettings* settings)
{
    if constexpr (std::is_same_v<Facade, DialogNodeTools>) {
        auto* tools = new DialogNodeTools(parent);
        tools->SetSettings(settings);
        tools->SetNodesMap(&noNodes);
        return tools;
    } else {
        return new Facade(parent, settings);
    }
}

// Under AddressSanitizer every wrong order is a use after free; without it,
// a double delete that usually aborts.
template <typename Facade> void survives(Order order)
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("host.ini"), QSettings::IniFormat);
    auto host = std::make_unique<QWidget>();
    std::unique_ptr<Facade> facade(make<Facade>(host.get(), &settings));
    std::unique_ptr<Facade> copy;
    const auto dialogs = [&host] { return host->findChildren<QDialog*>().size(); };
    QCOMPARE(dialogs(), 1);
    if (order == Order::HostWidgetFirst) {
        host.reset();
        // Nothing left to show; the host must not crash by asking.
        if constexpr (std::is_same_v<Facade, DialogImportShapeFile>)
            QVERIFY(!facade->Execute());
        else
            facade->ShowModal();
    } else if (order == Order::FacadeFirst) {
        facade.reset();
        QCOMPARE(dialogs(), 0);
    } else if (order == Order::CopyOutlivesOriginal) {
        copy = std::make_unique<Facade>(*facade);
        facade.reset();
        QCOMPARE(dialogs(), 1);
        copy.reset();
        QCOMPARE(dialogs(), 0);
    } else {
        copy.reset(make<Facade>(nullptr, &settings));
        *copy = *facade;
        host.reset();
        facade.reset();
    }
}

void lifetime(void (*survivesIn)(Order), Order order)
{
    survivesIn(order);
}

} // namespace

class FacadeLifetimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void survivesEitherOrderOfDestruction_data()
    {
        const auto row = rowsFor(lifetime);
        const QList<QPair<const char*, Order>> orders { { "host widget first", Order::HostWidgetFirst },
            { "facade first", Order::FacadeFirst }, { "copy outlives the original", Order::CopyOutlivesOriginal },
            { "assigned copy after the host widget", Order::CopiesAfterHostWidget } };
        for (const auto& order : orders) {
            row(qPrintable(QString("node tools, ") + order.first), survives<DialogNodeTools>, order.second);
            row(qPrintable(QString("shape import, ") + order.first), survives<DialogImportShapeFile>, order.second);
            row(qPrintable(QString("DXF tools, ") + order.first), survives<DialogDxfTools>, order.second);
        }
    }
    void survivesEitherOrderOfDestruction() { runRow(); }
};

QTEST_MAIN(FacadeLifetimeTest)
#include "FacadeLifetimeTest.moc"
