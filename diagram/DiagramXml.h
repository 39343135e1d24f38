#pragma once

/// Names of the XML vocabulary of diagram files.
namespace DiagramXml {

namespace Tag {
constexpr char root[] = "installation_diagram";
constexpr char connection[] = "connection";
constexpr char connectionA[] = "connectionA";
constexpr char connectionB[] = "connectionB";
/// A note at the top level, the caption inside another element.
constexpr char label[] = "label";
constexpr char inverter[] = "inverter";
constexpr char generationMeter[] = "generation_meter";
constexpr char distributionBoard[] = "distribution_board";
constexpr char acIsolator[] = "ac_isolator";
constexpr char dcIsolator[] = "dc_isolator";
constexpr char panel[] = "panel";
} // namespace Tag

namespace Attribute {
constexpr char id[] = "id";
constexpr char x[] = "x";
constexpr char y[] = "y";
constexpr char width[] = "width";
constexpr char height[] = "height";
constexpr char text[] = "text";
constexpr char type[] = "type";
constexpr char connectedItemId[] = "connectedItemId";
constexpr char connectedPosX[] = "connectedPosX";
constexpr char connectedPosY[] = "connectedPosY";
constexpr char direction[] = "direction";
} // namespace Attribute

} // namespace DiagramXml
