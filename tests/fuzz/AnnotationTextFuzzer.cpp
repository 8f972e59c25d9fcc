// An annotation file as a user's project holds it, through the file loop
// (a dry run: it reads, decodes and rewrites, but writes nothing) and the
// block rewriting of every operation. The first byte picks the operation
// and its options, the rest is the file.
#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/ChangeHREFPathBlockProcessor.h>
#include <nodetools/ChangeHREFTypeBlockProcessor.h>
#include <nodetools/ChangeHREFTypeToStandardBlockProcessor.h>
#include <nodetools/ChangePageNumberBlockProcessor.h>
#include <nodetools/ConvertFreeHandPinsBlockProcessor.h>
#include <nodetools/DuplicateHREFBlockProcessor.h>
#include <nodetools/ModifyAnnotationTargetsBlockProcessor.h>
#include <nodetools/RemoveHREFBlockProcessor.h>
#include <nodetools/ReplaceNameBlockProcessor.h>
#include <nodetools/SetPropertiesBlockProcessor.h>

#include <Kamo_view/ProjectDescription.h>

#include "FuzzScratch.h"

#include <QDir>

#include <cstdlib>
#include <memory>

namespace {

template <typename Processor, typename Setup> std::unique_ptr<ObjectBlockProcessor> make(Setup setup)
{
    auto processor = std::make_unique<Processor>();
    setup(*processor);
    return processor;
}

std::unique_ptr<ObjectBlockProcessor> makeProcessor(unsigned char choice)
{
    // The sample project gives the operations that look documents up real
    // nodes, files and pins to find.
    static ProjectDescription* const sample = [] {
        auto* loaded = new ProjectDescription;
        if (!loaded->Load(QStringLiteral(KAMO_SAMPLE_DIR)))
            std::abort();
        return loaded;
    }();
    const bool filtered = choice & 0x10;
    const QString category = filtered ? QStringLiteral("Schacht") : QString();
    const QString name = filtered ? QStringLiteral("^Haltung|S\\d+") : QString();
    switch (choice % 10) {
    case 0:
        return make<RemoveHREFBlockProcessor>([&](auto& p) { p.categoryFilter = category; });
    case 1:
        return make<DuplicateHREFBlockProcessor>([&](auto& p) {
            p.categoryFilter = category;
            p.newLinkTarget = QStringLiteral("C:\\Projekte\\Musterstadt\\PDF\\Nachtrag.pdf");
        });
    case 2:
        return make<ChangeHREFPathBlockProcessor>([](auto& p) {
            p.pathMap.insert(QStringLiteral("c:\\projekte\\musterstadt\\pdf\\lageplan_haltungen.pdf"),
                QStringLiteral("d:\\archiv\\lageplan_haltungen.pdf"));
        });
    case 3:
        return make<ChangeHREFTypeBlockProcessor>([&](auto& p) {
            p.categoryFilter = category;
            p.nodes = &sample->Nodes();
            p.files = &sample->Files();
        });
    case 4:
        return make<ChangeHREFTypeToStandardBlockProcessor>([&](auto& p) {
            p.categoryFilter = category;
            p.targetZone = (choice >> 5) % 3;
            p.nodes = &sample->Nodes();
            p.files = &sample->Files();
        });
    case 5:
        return make<ChangePageNumberBlockProcessor>([&](auto& p) {
            p.categoryFilter = category;
            p.nameFilter = name;
            p.pageDelta = (choice & 0x20) ? -3 : 2;
        });
    case 6:
        return make<ConvertFreeHandPinsBlockProcessor>([&](auto& p) {
            p.filesPinMap = &sample->Pins();
            p.fileNames = sample->Files().keys();
        });
    case 7:
        return make<ModifyAnnotationTargetsBlockProcessor>([&](auto& p) {
            p.categoryFilter = category;
            p.nameFilter = name;
            p.useTargetIndexFilter = choice & 0x20;
            p.targetIndex = 1;
            p.useEnvFactor = true;
            p.envFactor = 2.5f;
        });
    case 8:
        return make<ReplaceNameBlockProcessor>([&](auto& p) {
            p.nodes = &sample->Nodes();
            p.ignorePathOnCompare = choice & 0x20;
        });
    default:
        return make<SetPropertiesBlockProcessor>([&](auto& p) {
            p.categoryFilter = category;
            p.nameFilter = name;
            p.setName = true;
            p.name = QStringLiteral("Schacht S12 – Süd");
            p.setText = choice & 0x20;
            p.text = QStringLiteral("geprüft");
            p.setDimensions = choice & 0x40;
        });
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzScratch scratch;
    if (size < 1)
        return 0;
    const std::unique_ptr<ObjectBlockProcessor> processor = makeProcessor(data[0]);
    QDir(scratch.Path(QString())).mkpath(QStringLiteral("Daten"));
    scratch.Write(QStringLiteral("Daten/Lageplan_Haltungen.ann"), FuzzScratch::Bytes(data + 1, size - 1));
    AnnotationFileProcessor files;
    files.SetProjectRootDir(scratch.Path(QString()));
    files.SetFileNames({ QStringLiteral("Lageplan_Haltungen.pdf") });
    files.SetDryRun(true);
    files.Run(*processor);
    return 0;
}
