#pragma once

/// Type numbers of the graphics items of a diagram, as QGraphicsItem::type() returns them.
enum DiagramItemType
{
    DiagramGraphicsItemType = 0x10000,
    /// The bit that tells components from everything else.
    DiagramComponentType = 0x20000,
    AcIsolatorType = 0x20001,
    DcIsolatorType = 0x20002,
    DistributionBoardType = 0x20003,
    GenerationMeterType = 0x20004,
    InverterType = 0x20005,
    NoteType = 0x20006,
    PanelType = 0x20007,
    ConnectionType = 0x40000,
    SingleConnectionType = 0x40001,
    DcConnectionType = 0x40002,
    AcConnectionType = 0x40003
};

/// What lies over what. Wires lie below everything, captions over the component that they are written on,
/// and the ends of wires over all that they could be under when a hand reaches for them.
enum DiagramStacking
{
    ConnectionStacking = -1,
    ComponentStacking = 0,
    CaptionStacking = 1,
    ConnectionPointStacking = 2
};

inline bool isComponentType(int type)
{
    return type & DiagramComponentType;
}
