#include <dialogs/DialogDxfTools.h>
#include <dialogs/DialogImportShapeFile.h>
#include <dialogs/DialogNodeTools.h>

#include <Kamo_view/NodeInfo.h>

#include <QDialog>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

enum class Order { HostWidgetFirst, FacadeFirst, CopyOutlivesOriginal, CopiesAfterHostWidget };

// Each facade as a host constructs it and calls its modal entry.
struct NodeTools {
    static std::unique_ptr<DialogNodeTools> make(QWidget* parent, QSettings* settings)
    {
        auto facade = std::make_unique<DialogNodeTools>(parent);
        facade->SetSettings(settings);
        return facade;
    }
    static void run(DialogNodeTools& facade)
    {
        QMap<int, NodeInfo*> nodes;
        facade.SetNodesMap(&nodes);
        facade.ShowModal();
    }
};

struct ShapeImport {
    static std::unique_ptr<DialogImportShapeFile> make(QWidget* parent, QSettings* settings)
    {
        return std::make_unique<DialogImportShapeFile>(parent, settings);
    }
    static void run(DialogImportShapeFile& facade) { QVERIFY(!facade.Execute()); }
};

struct DxfTools {
    static std::unique_ptr<DialogDxfTools> make(QWidget* parent, QSettings* settings)
    {
        return std::make_unique<DialogDxfTools>(parent, settings);
    }
    static void run(DialogDxfTools& facade) { facade.ShowModal(); }
};

int dialogsOf(const QWidget& host)
{
    return host.findChildren<QDialog*>().size();
}

// Under AddressSanitizer every wrong order is a use after free; without it,
// a double delete that usually aborts.
template <typename Kind> void destroyInOrder(Order order, QSettings* settings)
{
    auto host = std::make_unique<QWidget>();
    auto facade = Kind::make(host.get(), settings);
    QCOMPARE(dialogsOf(*host), 1);

    switch (order) {
    case Order::HostWidgetFirst:
        host.reset();
        // Nothing left to show; the host must not crash by asking.
        Kind::run(*facade);
        facade.reset();
        break;
    case Order::FacadeFirst:
        facade.reset();
        QCOMPARE(dialogsOf(*host), 0);
        break;
    case Order::CopyOutlivesOriginal: {
        auto copy = std::make_unique<std::remove_reference_t<decltype(*facade)>>(*facade);
        facade.reset();
        QCOMPARE(dialogsOf(*host), 1);
        copy.reset();
        QCOMPARE(dialogsOf(*host), 0);
        break;
    }
    case Order::CopiesAfterHostWidget: {
        auto copy = Kind::make(nullptr, settings);
        *copy = *facade;
        host.reset();
        facade.reset();
        copy.reset();
        break;
    }
    }
}

} // namespace

Q_DECLARE_METATYPE(Order)

class FacadeLifetimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void survivesEitherOrderOfDestruction_data();
    void survivesEitherOrderOfDestruction();
};

void FacadeLifetimeTest::survivesEitherOrderOfDestruction_data()
{
    QTest::addColumn<QString>("facade");
    QTest::addColumn<Order>("order");

    const QList<QPair<const char*, Order>> orders { { "host widget first", Order::HostWidgetFirst },
        { "facade first", Order::FacadeFirst }, { "copy outlives the original", Order::CopyOutlivesOriginal },
        { "assigned copy after the host widget", Order::CopiesAfterHostWidget } };
    for (const char* facade : { "node tools", "shape import", "DXF tools" }) {
        for (const auto& order : orders)
            QTest::addRow("%s, %s", facade, order.first) << QString(facade) << order.second;
    }
}

void FacadeLifetimeTest::survivesEitherOrderOfDestruction()
{
    QFETCH(QString, facade);
    QFETCH(Order, order);
    QTemporaryDir dir;
    // The dialogs write their geometry when they go, whoever deletes them.
    QSettings settings(dir.filePath("host.ini"), QSettings::IniFormat);
    if (facade == "node tools")
        destroyInOrder<NodeTools>(order, &settings);
    else if (facade == "shape import")
        destroyInOrder<ShapeImport>(order, &settings);
    else
        destroyInOrder<DxfTools>(order, &settings);
}

QTEST_MAIN(FacadeLifetimeTest)
#include "FacadeLifetimeTest.moc"
