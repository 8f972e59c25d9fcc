#include "dialogs/DialogNodeTools.h"

DialogNodeTools::DialogNodeTools(QWidget* parent)
    : parent(parent)
{ }

DialogNodeTools::~DialogNodeTools() = default;

void DialogNodeTools::SetProjectId(const QString& id)
{
    projectId = id;
}
void DialogNodeTools::SetProjectName(const QString& name)
{
    projectName = name;
}
void DialogNodeTools::SetProjectRootDir(const QString& dir)
{
    projectRootDir = dir;
}
void DialogNodeTools::SetSettings(QSettings* store)
{
    settings = store;
}
void DialogNodeTools::SetSourceTreeWidget(TreeWidget* tree)
{
    sourceTree = tree;
}
void DialogNodeTools::SetNodesMap(QMap<int, NodeInfo*>* map)
{
    nodes = map;
}
void DialogNodeTools::SetTableMap(QMap<int, TableInfo*>* map)
{
    tables = map;
}
void DialogNodeTools::SetParticipantsMap(QMap<int, ParticipantInfo*>* map)
{
    participants = map;
}
void DialogNodeTools::SetGalleryMap(QMap<int, GalleryInfo*>* map)
{
    galleries = map;
}
void DialogNodeTools::SetFilesMap(QMap<QString, NodeFileInfo>* map)
{
    files = map;
}
void DialogNodeTools::SetFilesPinMap(QMap<QString, QMap<int, QList<PinObject>>>* map)
{
    filesPins = map;
}

void DialogNodeTools::ShowModal()
{ }
