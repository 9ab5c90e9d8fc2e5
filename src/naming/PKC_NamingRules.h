#pragma once

#include "plotka_export.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QString>

class QXmlAttributes;

/// How the sequences, shots and panels of a project are named. Kept with the project.
///
/// Each rule stands in two places: in this record and in the user's preferences. The getters answer from the record
/// while it overloads the preferences, and else read the preference anew at each call, so a change of one counts
/// at once. The setters write the record only. A record starts with what the preferences say, and does not overload.
class PLOTKA_EXPORT PKC_NamingRules : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    /// @name Kinds of names
    /// Files and preferences hold the numbers; one that is not here may come from either.
    /// @{
    enum NameRule_t : int {
        Numeric = 0,        ///< 1, 2, 3 ...
        Alpha = 1,          ///< A ... Z, AA, AB ... AZ, BA ...
        AlphaSingleZ = 2,   ///< A ... Z, ZA ... ZZ, ZAA, ZAB ...
        AlphaRepeatedZ = 3, ///< A ... Z, ZA ... ZZ, ZZA ... ZZZ, ZZZA ...
        AlphaNumberedZ = 4, ///< A ... Z, ZA ... ZZ, 2ZA ... 2ZZ, 3ZA ...
        IncrementByN = 5,   ///< multiples of a step
    };
    /// Stands before the suffix of a name that is taken.
    enum Delimiter_t : int { NoDelimiter = 0, Underscore = 1, Dot = 2 };
    /// The suffix of a name that is taken.
    enum SuffixType_t : int { NoSuffix = 0, NumberSuffix = 1, UpperCaseSuffix = 2, LowerCaseSuffix = 3 };

    /// "_" and "."; empty for all other values.
    static QString delimiterStr(Delimiter_t delimiter);
    /// The first suffix of the kind: "1", "A" and "a"; empty for all other values.
    static QString suffixTypeStr(SuffixType_t type);
    /// @}

    /// The rules for one kind of object.
    class PLOTKA_EXPORT ObjRules
    {
    public:
        /// For "sequence", "shot" or "panel"; under another name each rule without a preference is false or 0.
        explicit ObjRules(const QString &objName);
        ObjRules(const ObjRules &) = default;
        /// Takes the rules and stays what it is: of the same kind of object, and counting as before.
        ObjRules &operator=(const ObjRules &other);
        virtual ~ObjRules();

        /// Compares what is stored and not what the getters answer; whether it counts takes no part.
        bool operator==(const ObjRules &other) const;
        bool operator!=(const ObjRules &other) const { return !(*this == other); }

        /// Generated names are filled up with "0" on the left.
        bool automaticLeadingZeros() const;
        void setAutomaticLeadingZeros(bool on) { m_automaticLeadingZeros = on; }
        /// The least number of characters of a name that is filled up.
        int numberOfZeros() const;
        void setNumberOfZeros(int count) { m_numberOfZeros = count; }
        /// People may rename objects of this kind.
        bool allowCustomName() const;
        void setAllowCustomName(bool on) { m_allowCustomName = on; }
        NameRule_t autoIncrementRule() const;
        void setAutoIncrementRule(NameRule_t rule) { m_autoIncrementRule = rule; }
        /// The step of IncrementByN. A file may bring any, 0 included.
        int autoIncrementValue() const;
        void setAutoIncrementValue(int value) { m_autoIncrementValue = value; }
        Delimiter_t nameSuffixDelimiter() const;
        void setNameSuffixDelimiter(Delimiter_t delimiter) { m_nameSuffixDelimiter = delimiter; }
        SuffixType_t nameSuffixType() const;
        void setNameSuffixType(SuffixType_t type) { m_nameSuffixType = type; }
        /// An object is renamed when it is dragged elsewhere.
        bool smartNameOnDrop() const;
        void setSmartNameOnDrop(bool on) { m_smartNameOnDrop = on; }
        /// An object that comes to another parent loses its name.
        bool resetNameOnNewParent() const;
        void setResetNameOnNewParent(bool on) { m_resetNameOnNewParent = on; }

    protected:
        bool overloadingPref() const { return m_overloadingPref; }
        void setOverloadingPref(bool on) { m_overloadingPref = on; }
        /// Whole numbers that are missing or bad become 0; the rest stays then as it was.
        void readFromXml(const QXmlAttributes &attributes);
        void writeToXml(PIO_WritingContext &context) const;
        /// Appends nothing.
        void dumpToString(QString &text) const;

    private:
        friend class PKC_NamingRules;
        friend class NamingRulesMetadataReader;

        bool m_overloadingPref = false;
        bool m_automaticLeadingZeros;
        int m_numberOfZeros;
        bool m_allowCustomName;
        NameRule_t m_autoIncrementRule;
        int m_autoIncrementValue;
        Delimiter_t m_nameSuffixDelimiter;
        SuffixType_t m_nameSuffixType;
        bool m_smartNameOnDrop;
        bool m_resetNameOnNewParent;
        QString m_objName;
    };

    explicit PKC_NamingRules(const QString &name = QString());
    PKC_NamingRules(const QString &name, const QString &creator, const QString &version);
    PKC_NamingRules(const PKC_NamingRules &) = default;
    PKC_NamingRules &operator=(const PKC_NamingRules &other);
    ~PKC_NamingRules() override;

    /// Always.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    /// Compares what is stored, and whether it counts.
    bool operator==(const PKC_NamingRules &other) const;
    bool operator!=(const PKC_NamingRules &other) const { return !(*this == other); }

    const ObjRules &sequenceRules() const { return m_sequenceRules; }
    ObjRules &sequenceRules() { return m_sequenceRules; }
    const ObjRules &shotRules() const { return m_shotRules; }
    ObjRules &shotRules() { return m_shotRules; }
    const ObjRules &panelRules() const { return m_panelRules; }
    ObjRules &panelRules() { return m_panelRules; }

    /// The record counts, and not the preferences: for itself and for the three kinds of object.
    bool overloadingPref() const { return m_overloadingPref; }
    void setOverloadingPref(bool on);
    /// The name of a panel says how many panels its shot has.
    bool autoShowTotal() const;
    void setAutoShowTotal(bool on) { m_autoShowTotal = on; }
    bool enabledAct() const;
    void setEnabledAct(bool on) { m_enabledAct = on; }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    bool m_overloadingPref = false;
    bool m_autoShowTotal;
    bool m_enabledAct;
    ObjRules m_sequenceRules;
    ObjRules m_shotRules;
    ObjRules m_panelRules;
};
