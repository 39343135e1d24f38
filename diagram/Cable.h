#pragma once

#include <QString>

/// The kinds of wires and cables, as the tool bar numbers them.
enum CableType
{
    NoCable = 0,
    SingleWire = 1,
    DcCable = 2,
    AcCable = 3
};

/// What the kinds differ in.
struct Cable
{
    int cableType;
    /// As it stands in files.
    const char *name;
    /// Type number of its graphics item.
    int itemType;
    /// From the middle to the outer wires.
    double halfWidth;
    /// How far from the middle the pointer still hits it.
    double hitHalfWidth;
    bool hasOuterWires;
    bool hasMiddleWire;

    /// The facts of a kind. A number that is none has those of a single wire and a type number of its own.
    static const Cable &ofType(int cableType);
    /// The kind with this name in a file; a single wire for a name that is none.
    static const Cable &ofName(const QString &name);
};
