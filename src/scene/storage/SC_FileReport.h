#pragma once

#include "plotka_scene_export.h"

#include <QString>

#include <vector>

/// What was found wrong while a project was read or written, in the order in which it was found.
class PLOTKA_SCENE_EXPORT SC_FileReport
{
public:
    /// A Warning left one item out; after an Error there is no project, or the file was not written.
    enum Severity { Warning, Error };

    struct Entry {
        Severity severity;
        QString file;
        qint64 line;   ///< from 1; 0 when it is about no line
        qint64 column; ///< from 1; 0 likewise
        QString item;  ///< what it is about, such as "scene 12"; may be empty
        QString message;
        qint64 count = 1; ///< how many it stands for: more than one where it closes a list that was cut short

        /// "file:line:column: error: item: message", leaving out what is not known.
        QString text() const;
    };

    const std::vector<Entry> &entries() const { return m_entries; }
    /// Attributes of records that took a default, as every record does with what it cannot read: nothing that the
    /// reading of a project is about, but of use to who looks for damage.
    const std::vector<Entry> &remarks() const { return m_remarks; }
    /// How many the entries, or the remarks, stand for.
    static qint64 countOf(const std::vector<Entry> &entries);
    bool isEmpty() const { return m_entries.empty(); }
    bool hasErrors() const;
    void add(Entry entry);
    void addRemark(Entry entry);
    void clear();

private:
    std::vector<Entry> m_entries;
    std::vector<Entry> m_remarks;
};
