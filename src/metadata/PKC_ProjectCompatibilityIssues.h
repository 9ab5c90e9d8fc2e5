#pragma once

#include "metadata/PKC_ProjectCompatibility.h"
#include "plotka_export.h"

#include <QString>

#include <map>
#include <memory>
#include <set>

class PKC_PlotkaProject;

/// The issues that are known, each under its id, and which of them a project has.
///
/// One is always there: "space-between-panels", for a timeline that starts late or has a gap between panels.
class PLOTKA_EXPORT PKC_ProjectCompatibilityIssues
{
public:
    class PLOTKA_EXPORT Issue
    {
    public:
        Issue() = default;
        Issue(const Issue &) = delete;
        Issue &operator=(const Issue &) = delete;

        // The order of the virtual functions is relied on by those that derive from this class.
        virtual ~Issue();
        /// Stays the same once the issue is registered.
        virtual QString id() const = 0;
        /// The product that understands it, and from which version on.
        virtual QString product() const = 0;
        virtual QString version() const = 0;
        /// Whether a project has the issue. The project may be null.
        virtual bool isIn(PKC_PlotkaProject *project) const = 0;
    };

    virtual ~PKC_ProjectCompatibilityIssues();
    PKC_ProjectCompatibilityIssues(const PKC_ProjectCompatibilityIssues &) = delete;
    PKC_ProjectCompatibilityIssues &operator=(const PKC_ProjectCompatibilityIssues &) = delete;

    /// Takes ownership of an issue made with new; another one of the same id is deleted, after the analysis where one is
    /// under way. Null is ignored.
    static void registerIssue(const Issue *issue);
    /// The known issues that @p project has.
    static std::set<PKC_ProjectCompatibility::CompatiblityIssue_s> analyseProject(PKC_PlotkaProject *project);
    /// Whether one of the issues is not known by its id. False when there are none.
    static bool hasUnknowsIssue(const std::set<PKC_ProjectCompatibility::CompatiblityIssue_s> &issues);

protected:
    PKC_ProjectCompatibilityIssues();
    /// The one registry. It is never destroyed.
    static PKC_ProjectCompatibilityIssues &instance();

private:
    void add(const Issue *issue);

    std::map<QString, std::shared_ptr<const Issue>> m_issues; // by id, case-sensitively
};
