#pragma once

#include "pdf/properties/PKC_PropertiedObject.h"

#include <QDomDocument>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

/// Objects for tests of PKC_PropertiedObject, and how they look.
namespace PropertiedObjects
{

inline const QString kA = QStringLiteral("a");
inline const QString kB = QStringLiteral("b");
inline const QString kC = QStringLiteral("c");

/// "name=value" of all properties in order.
inline std::string textOf(const PKC_PropertiedObject &object)
{
    std::list<PKC_Property *> properties;
    object.getAllProperties(properties);
    QStringList parts;
    for (const PKC_Property *property : properties)
        parts += QStringLiteral("%1=%2").arg(property->name(), property->toString());
    return parts.join(QLatin1Char(' ')).toStdString();
}

/// a=1 b=2 c=3, plain and without definition.
inline std::unique_ptr<PKC_PropertiedObject> abc()
{
    auto object = std::make_unique<PKC_PropertiedObject>();
    object->setProperty(kA, QVariant(1));
    object->setProperty(kB, QVariant(2));
    object->setProperty(kC, QVariant(3));
    return object;
}

/// Does what the test says when it hears of something.
class Listener : public PKC_PropertyObserver
{
public:
    void onPropertyModified(PKC_Property *) override
    {
        if (whenModified)
            whenModified();
    }
    void onPropertyDeleted(PKC_Property *) override
    {
        if (whenDeleted)
            whenDeleted();
    }

    std::function<void()> whenModified;
    std::function<void()> whenDeleted;
};

class Profile : public PKC_PropertiedObject
{
public:
    QString nodeName() const override { return QStringLiteral("profile"); }
};

inline bool loadInto(PKC_PropertiedObject &object, const QString &markup)
{
    QDomDocument document;
    EXPECT_TRUE(document.setContent(markup)) << markup.toStdString();
    QDomElement element = document.documentElement();
    return object.load(element);
}

inline QString stored(const PKC_PropertiedObject &object)
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("root"));
    document.appendChild(root);
    EXPECT_TRUE(object.store(document, root));
    return document.toString(1);
}

} // namespace PropertiedObjects
