// The analysis's own result view is a dialog: its body lives with the
// dialogs, so that the engine, where the rest of AnalyzeProjectNT is, needs
// no widgets.
#include "dialogs/DlgAnalyzeProject.h"
#include "nodetools/AnalyzeProjectNT.h"

void AnalyzeProjectNT::ShowResult(QWidget* parent)
{
    DlgAnalyzeProject dialog(parent);
    dialog.SetDataDirectory(projectRootDir);
    dialog.SetFileNames(withoutAnnotations);
    dialog.SetReferencedFiles(referenced);
    dialog.SetUnusedAnnotationFiles(unused);
    dialog.SetUsedAnnotationFiles(used);
    dialog.FillLists();
    dialog.exec();
}
