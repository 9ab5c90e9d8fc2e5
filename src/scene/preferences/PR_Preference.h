#pragma once

#include "plotka_scene_export.h"

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

/// Named settings of kind bool, int or text.
///
/// A setting of another kind than the one asked for reads as absent. A setter that changes a value
/// tells it at once, also while an object that listens is being destroyed.
class PLOTKA_SCENE_EXPORT PR_Preference : public QObject
{
    Q_OBJECT

public:
    explicit PR_Preference(QObject *parent = nullptr);
    ~PR_Preference() override;

    /// False when absent.
    bool getBool(const QString &key) const;
    bool getBoolValue(const QString &key, bool defaultValue) const;
    int getIntValue(const QString &key, int defaultValue) const;
    QString getStringValue(const QString &key, const QString &defaultValue) const;

    void setBoolValue(const QString &key, bool value);
    void setIntValue(const QString &key, int value);
    void setStringValue(const QString &key, const QString &value);
    void clear();

    /// Replaces all settings by those of a file. False when it cannot be read, and nothing has changed;
    /// entries of it that are no settings are left out.
    bool load(const QString &path);
    /// False when the file cannot be written; an older one is then whole.
    bool save(const QString &path) const;

Q_SIGNALS:
    /// After each of the settings above, also when it set what was set already.
    void preferenceChanged();

private:
    void set(const QString &key, const QVariant &value);
    void replace(const QMap<QString, QVariant> &values);

    QMap<QString, QVariant> m_values;
};

/// The settings of this program. They exist before any code that links this library starts and are
/// never destroyed, so that static objects may use them, their destructors too.
extern PLOTKA_SCENE_EXPORT PR_Preference *tuPref;
