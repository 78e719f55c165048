#pragma once

#include "platform/help/chm_file.h"

#include <QHash>
#include <vector>

namespace platform {

// An entry of a help file's contents or index.
struct HelpEntry {
    QString name;
    QString page;  // as in ChmFile::Names(), with "#place" where it names one; empty for a heading
    int depth = 0; // 0 at the left
};

// Reads the list that a compiled help file keeps its contents and its index in. What it does not understand
// is left out; depth and count are bounded.
std::vector<HelpEntry> ReadSiteMap(const QByteArray& source);

// A help file as its reader sees it: contents, index, pages and their text.
class HelpBook {
public:
    ChmFile::State Open(const QString& path);
    bool IsOpen() const { return m_file.CurrentState() == ChmFile::State::Open; }

    QString Title() const;
    QString HomePage() const; // the default topic, else the first page
    const std::vector<HelpEntry>& Contents() const { return m_contents; }
    const std::vector<HelpEntry>& Index() const { return m_index; } // by the alphabet
    QStringList Pages() const;
    QByteArray Read(const QString& name) const { return m_file.Read(name); }

    QString PageTitle(const QString& page) const;
    // The page without its tags.
    QString PageText(const QString& page) const;

    // The pages that have all words of the query, each as the beginning of a word and without regard to case:
    // those with a word in their title first, then by how often they have the words.
    QStringList Search(const QString& query) const;

private:
    struct PageWords {
        QString title;
        QString text;
    };
    const PageWords& WordsOf(const QString& page) const;

    ChmFile m_file;
    std::vector<HelpEntry> m_contents;
    std::vector<HelpEntry> m_index;
    mutable QHash<QString, PageWords> m_words; // of the pages asked for so far
};

} // namespace platform
