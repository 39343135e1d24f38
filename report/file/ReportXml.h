#pragma once

#include "app/core/GatedXml.h"


/// Names of the XML vocabulary of report files.
namespace ReportXml {

namespace Tag {
constexpr char document[] = "document";
constexpr char page[] = "page";
constexpr char text[] = "text";
constexpr char checkBox[] = "checkBox";
constexpr char svg[] = "svg";
constexpr char table[] = "table";
constexpr char tableset[] = "tableset";
constexpr char cell[] = "cell";
constexpr char image[] = "image";
} // namespace Tag

namespace Attribute {
constexpr char resPak[] = "resPak";
constexpr char x[] = "x";
constexpr char y[] = "y";
constexpr char id[] = "id";
constexpr char editable[] = "editable";
constexpr char colour[] = "colour";
constexpr char backgroundColour[] = "backgroundColour";
constexpr char font[] = "font";
constexpr char fontSize[] = "fontSize";
constexpr char fontWeight[] = "fontWeight";
constexpr char padding[] = "padding";
constexpr char pageType[] = "pageType";
constexpr char pageNumber[] = "pageNumber";
constexpr char width[] = "width";
constexpr char height[] = "height";
constexpr char resizable[] = "resizable";
constexpr char checked[] = "checked";
constexpr char boxPosX[] = "boxPosX";
constexpr char boxPosY[] = "boxPosY";
constexpr char boxScale[] = "boxScale";
constexpr char file[] = "file";
constexpr char dpi[] = "dpi";
constexpr char index[] = "index";
constexpr char scale[] = "scale";
constexpr char numCols[] = "numCols";
constexpr char numRows[] = "numRows";
constexpr char col[] = "col";
constexpr char row[] = "row";
constexpr char size[] = "size";
constexpr char colspan[] = "colspan";
constexpr char rowspan[] = "rowspan";
} // namespace Attribute

/// Name of the entry that holds the XML.
constexpr char entryName[] = "xml";

using GatedXml::Error;
using GatedXml::parse;
using GatedXml::read;

} // namespace ReportXml
