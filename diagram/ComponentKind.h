#pragma once

#include <QString>

/// What the kinds of components differ in, apart from their drawing.
struct ComponentKind
{
    /// Type number of its graphics item.
    int type;
    const char *tag;
    double width;
    double height;
    const char *displayName;
    const char *menuText;
    /// What the question for a new caption starts with; the display name where there is none.
    const char *suggestion;
    bool hasCaption;
    /// Of a new caption, from the component's position.
    double captionX;
    double captionY;
    /// Of a new caption; negative for the size of its text.
    double captionWidth;
    double captionHeight;

    /// In the order of the menu.
    static constexpr int count = 7;
    static const ComponentKind *all();
    static const ComponentKind &ofType(int type);

    QString translatedName() const;
    QString translatedMenuText() const;
    QString suggestedCaption() const;
};
