#ifndef KAMO_TOOLS_LINKTARGET_H
#define KAMO_TOOLS_LINKTARGET_H

#include "kamo_tools_export.h"

#include <QString>
#include <QStringList>

/// One distinct document path that links of a project lead to, as a
/// LinkCheck found it: how often it is linked, from which annotation files,
/// whether it exists, and where a missing one may have gone.
class KAMO_TOOLS_EXPORT LinkTarget
{
public:
    /// Whether the path leads to a file.
    enum class State {
        Exists,
        /// The folder is there, the file is not.
        Missing,
        /// Not even the folder is there.
        FolderMissing,
        /// A path of the other kind of system (a Windows path checked
        /// elsewhere), which cannot exist here.
        Foreign,
        /// Neither absolute nor a drive or share path: it depends on where
        /// the host stands, so it cannot be checked.
        Relative,
    };
    /// What the search folders offer for a target that is not there.
    enum class Proposal {
        /// The target exists, or no search was asked for.
        None,
        /// Exactly one file of the same name: Candidates() holds it.
        Proposed,
        /// Several: Candidates() holds them all, none is chosen.
        Ambiguous,
        /// No file of that name.
        Unresolved,
        /// The target or its one candidate holds a comma or a line break,
        /// which a line of the path map cannot: Candidates() holds it.
        Unwritable,
    };

    /// The path as the first link to it writes it.
    QString Path() const { return path; }
    /// Links to it (a split link counts once per zone that leads to it).
    int Links() const { return links; }
    /// The annotation files that hold those links, in the order read.
    const QStringList& AnnotationFiles() const { return annotationFiles; }
    /// Whether the path leads to a file, and why not.
    State GetState() const { return state; }
    /// Every state but State::Exists.
    bool IsMissing() const { return state != State::Exists; }
    /// What the search folders offer; Proposal::None for a target that exists.
    Proposal GetProposal() const { return proposal; }
    /// Files of the same name under the search folders, sorted; for a
    /// proposed target the one it would be redirected to.
    const QStringList& Candidates() const { return candidates; }

private:
    friend class LinkCheck;

    QString path;
    int links = 0;
    QStringList annotationFiles;
    State state = State::Missing;
    Proposal proposal = Proposal::None;
    QStringList candidates;
};

#endif
