<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Batch</name>
    <message>
        <source>%1 exists already; --force overwrites it.</source>
        <translation>%1 exists already; --force overwrites it.</translation>
    </message>
    <message>
        <source>%1 cannot be read.</source>
        <translation>%1 cannot be read.</translation>
    </message>
    <message>
        <source>%1 has no row %2: it has %3 rows.</source>
        <translation>%1 has no row %2: it has %3 rows.</translation>
    </message>
    <message>
        <source>%1 does not exist; --new makes it.</source>
        <translation>%1 does not exist; --new makes it.</translation>
    </message>
    <message>
        <source>There is no form for the suffix of %1.</source>
        <translation>There is no form for the suffix of %1.</translation>
    </message>
    <message>
        <source>%1 is no document that can be printed.</source>
        <translation>%1 is no document that can be printed.</translation>
    </message>
    <message>
        <source>%1 cannot be input and output at once.</source>
        <translation>%1 cannot be input and output at once.</translation>
    </message>
    <message>
        <source>line %1, &quot;%2&quot;: skipped, %3</source>
        <translation>line %1, &quot;%2&quot;: skipped, %3</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: skipped, it is in the catalogue already</source>
        <translation>&quot;%1&quot;: skipped, it is in the catalogue already</translation>
    </message>
    <message>
        <source>The catalogue cannot be written.</source>
        <translation>The catalogue cannot be written.</translation>
    </message>
    <message>
        <source>The catalogue is left as it was.</source>
        <translation>The catalogue is left as it was.</translation>
    </message>
    <message>
        <source>%1 modules added, %2 lines skipped</source>
        <translation>%1 modules added, %2 lines skipped</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>%1 cannot be written.</translation>
    </message>
    <message>
        <source>%1 strings imported</source>
        <translation>%1 strings imported</translation>
    </message>
    <message>
        <source>%1 has no column %2.</source>
        <translation>%1 has no column %2.</translation>
    </message>
    <message>
        <source>%1 is both read and written.</source>
        <translation>%1 is both read and written.</translation>
    </message>
    <message>
        <source>%1 names no format for a graph.</source>
        <translation>%1 names no format for a graph.</translation>
    </message>
    <message>
        <source>There is no string %1.</source>
        <translation>There is no string %1.</translation>
    </message>
    <message>
        <source>There are no strings in the file.</source>
        <translation>There are no strings in the file.</translation>
    </message>
    <message>
        <source>%1 is no folder.</source>
        <translation>%1 is no folder.</translation>
    </message>
</context>
<context>
    <name>Datalogger</name>
    <message>
        <source>Could not find:
%1.
Please try re-installing %2 again</source>
        <comment>Error Message</comment>
        <translation>Could not find:
%1.
Please try re-installing %2 again</translation>
    </message>
    <message>
        <source>%1.exe failed to start. A file may be missing or corrupted. Please install %2 again.</source>
        <comment>Missing file error message</comment>
        <translation>%1.exe failed to start. A file may be missing or corrupted. Please install %2 again.</translation>
    </message>
    <message>
        <source>Would you like to import the last file you just downloaded?</source>
        <comment>User prompt</comment>
        <translation>Would you like to import the last file you just downloaded?</translation>
    </message>
    <message>
        <source>File: %1 was saved %2.</source>
        <comment>time since saved</comment>
        <translation>File: %1 was saved %2.</translation>
    </message>
    <message>
        <source>%1 seconds ago</source>
        <comment>time since saved</comment>
        <translation>%1 seconds ago</translation>
    </message>
    <message>
        <source>%1 minutes ago</source>
        <comment>time since saved</comment>
        <translation>%1 minutes ago</translation>
    </message>
    <message>
        <source>%1 hours ago</source>
        <comment>time since saved</comment>
        <translation>%1 hours ago</translation>
    </message>
    <message>
        <source>%1 days ago</source>
        <comment>time since saved</comment>
        <translation>%1 days ago</translation>
    </message>
</context>
<context>
    <name>DiagramComponent</name>
    <message>
        <source>Label</source>
        <translation>Label</translation>
    </message>
    <message>
        <source>Inverter</source>
        <translation>Inverter</translation>
    </message>
    <message>
        <source>Generation Meter</source>
        <translation>Generation Meter</translation>
    </message>
    <message>
        <source>Distribution Board</source>
        <translation>Distribution Board</translation>
    </message>
    <message>
        <source>AC Isolator</source>
        <translation>AC Isolator</translation>
    </message>
    <message>
        <source>DC Isolator</source>
        <translation>DC Isolator</translation>
    </message>
    <message>
        <source>PV Panel</source>
        <translation>PV Panel</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>Delete %1</translation>
    </message>
</context>
<context>
    <name>DiagramConnection</name>
    <message>
        <source>Connection</source>
        <translation>Connection</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>Delete %1</translation>
    </message>
</context>
<context>
    <name>DiagramGraphicsScene</name>
    <message>
        <source>Add Label</source>
        <translation>Add Label</translation>
    </message>
    <message>
        <source>Insert notes here</source>
        <translation>Insert notes here</translation>
    </message>
    <message>
        <source>Add Invertor</source>
        <translation>Add Invertor</translation>
    </message>
    <message>
        <source>Add Generation Meter</source>
        <translation>Add Generation Meter</translation>
    </message>
    <message>
        <source>Add Distribution Board</source>
        <translation>Add Distribution Board</translation>
    </message>
    <message>
        <source>Add AC Isolator</source>
        <translation>Add AC Isolator</translation>
    </message>
    <message>
        <source>Add DC Isolator</source>
        <translation>Add DC Isolator</translation>
    </message>
    <message>
        <source>Add PV Panel</source>
        <translation>Add PV Panel</translation>
    </message>
    <message>
        <source>Error opening %1 for writing</source>
        <translation>Error opening %1 for writing</translation>
    </message>
    <message>
        <source>Is the file read-only or has it been deleted?</source>
        <translation>Is the file read-only or has it been deleted?</translation>
    </message>
    <message>
        <source>XML validation error in %1 on line %2, column %3</source>
        <translation>XML validation error in %1 on line %2, column %3</translation>
    </message>
</context>
<context>
    <name>DiagramLabel</name>
    <message>
        <source>Set Label Text</source>
        <translation>Set Label Text</translation>
    </message>
    <message>
        <source>Delete Label</source>
        <translation>Delete Label</translation>
    </message>
</context>
<context>
    <name>DialogAbout</name>
    <message>
        <source>About %1</source>
        <translation>About %1</translation>
    </message>
</context>
<context>
    <name>DialogComponentSettings</name>
    <message>
        <source>Component Settings</source>
        <translation>Component Settings</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Label</translation>
    </message>
</context>
<context>
    <name>DialogImportResults</name>
    <message>
        <source>Import Results</source>
        <translation>Import Results</translation>
    </message>
    <message>
        <source>The following data is available for import. Ensure a Array Test Report is open and active and click a row in the table below to import the data.</source>
        <translation>The following data is available for import. Ensure a Array Test Report is open and active and click a row in the table below to import the data.</translation>
    </message>
    <message>
        <source>Import row(s)</source>
        <translation>Import row(s)</translation>
    </message>
    <message>
        <source>Error opening %1 for reading.</source>
        <translation>Error opening %1 for reading.</translation>
    </message>
    <message>
        <source>Import Results - %1</source>
        <translation>Import Results - %1</translation>
    </message>
</context>
<context>
    <name>DialogLanguageChooser</name>
    <message>
        <source>Please Select a Language</source>
        <translation>Please Select a Language</translation>
    </message>
</context>
<context>
    <name>DialogSettings</name>
    <message>
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Projects Directory</source>
        <translation>Projects Directory</translation>
    </message>
    <message>
        <source>The root directory of all projects:</source>
        <translation>The root directory of all projects:</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Report Favourites</source>
        <translation>Report Favourites</translation>
    </message>
    <message>
        <source>If a favourite has been saved for a particular report type, then this will be used when creating a new report. Use the buttons below to restore the reports to their defaults.</source>
        <translation>If a favourite has been saved for a particular report type, then this will be used when creating a new report. Use the buttons below to restore the reports to their defaults.</translation>
    </message>
    <message>
        <source>Restore Inspection Report</source>
        <translation>Restore Inspection Report</translation>
    </message>
    <message>
        <source>Restore PV Array Test Report</source>
        <translation>Restore PV Array Test Report</translation>
    </message>
    <message>
        <source>Restore Vertification Certificate</source>
        <translation>Restore Vertification Certificate</translation>
    </message>
    <message>
        <source>Restore Checklist</source>
        <translation>Restore Checklist</translation>
    </message>
    <message>
        <source>File last modified on %1.</source>
        <comment>date of modification</comment>
        <translation>File last modified on %1.</translation>
    </message>
    <message>
        <source>The default report has not been modified.</source>
        <comment>Message to user</comment>
        <translation>The default report has not been modified.</translation>
    </message>
    <message>
        <source>Select Projects Root Directory</source>
        <translation>Select Projects Root Directory</translation>
    </message>
</context>
<context>
    <name>DialogWelcome</name>
    <message>
        <source>Welcome</source>
        <translation>Welcome</translation>
    </message>
    <message>
        <source>Please choose one of the following options:</source>
        <translation>Please choose one of the following options:</translation>
    </message>
    <message>
        <source>Watch video tutorial now (recommended)</source>
        <translation>Watch video tutorial now (recommended)</translation>
    </message>
    <message>
        <source>Do not show this message again</source>
        <translation>Do not show this message again</translation>
    </message>
    <message>
        <source>Thank you for choosing %1.</source>
        <translation>Thank you for choosing %1.</translation>
    </message>
    <message>
        <source>Continue using %1</source>
        <translation>Continue using %1</translation>
    </message>
    <message>
        <source>Welcome to %1!</source>
        <translation>Welcome to %1!</translation>
    </message>
</context>
<context>
    <name>DocumentFactory</name>
    <message>
        <source>There was an problem trying to open %1</source>
        <comment>Error Message</comment>
        <translation>There was an problem trying to open %1</translation>
    </message>
    <message>
        <source>Please make sure a program is associated with this file type.</source>
        <comment>Error message informative text</comment>
        <translation>Please make sure a program is associated with this file type.</translation>
    </message>
    <message>
        <source>You are creating an Array Test Report from a favourite that was created in an older version of %1. If you use this version then you will not be able to import data into it.</source>
        <comment>Error Message</comment>
        <translation>You are creating an Array Test Report from a favourite that was created in an older version of %1. If you use this version then you will not be able to import data into it.</translation>
    </message>
    <message>
        <source>Would you like to replace the favourite with the new version of the report?</source>
        <comment>Error message informative text</comment>
        <translation>Would you like to replace the favourite with the new version of the report?</translation>
    </message>
    <message>
        <source>Failed to create document</source>
        <comment>Error Message</comment>
        <translation>Failed to create document</translation>
    </message>
</context>
<context>
    <name>FindInFiles</name>
    <message>
        <source>Find in Files</source>
        <translation>Find in Files</translation>
    </message>
    <message>
        <source>Search by any or all of the criteria below.</source>
        <translation>Search by any or all of the criteria below.</translation>
    </message>
    <message>
        <source>File search</source>
        <translation>File search</translation>
    </message>
    <message>
        <source>All or part of the file name:</source>
        <translation>All or part of the file name:</translation>
    </message>
    <message>
        <source>Case sensitive</source>
        <translation>Case sensitive</translation>
    </message>
    <message>
        <source>Word / Phrase Search</source>
        <translation>Word / Phrase Search</translation>
    </message>
    <message>
        <source>A word or phrase in the reports:</source>
        <translation>A word or phrase in the reports:</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>from</source>
        <translation>from</translation>
    </message>
    <message>
        <source>to</source>
        <translation>to</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>File Size</translation>
    </message>
    <message>
        <source> KB</source>
        <translation> KB</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>Created Date</source>
        <translation>Created Date</translation>
    </message>
    <message>
        <source>Modified Date</source>
        <translation>Modified Date</translation>
    </message>
    <message>
        <source>Accessed Date</source>
        <translation>Accessed Date</translation>
    </message>
    <message>
        <source>greater than</source>
        <translation>greater than</translation>
    </message>
    <message>
        <source>less than</source>
        <translation>less than</translation>
    </message>
</context>
<context>
    <name>Folders</name>
    <message>
        <source>Could not find the projects root directory: %1</source>
        <comment>Warning Message</comment>
        <translation>Could not find the projects root directory: %1</translation>
    </message>
    <message>
        <source>Please select a new projects root directory.</source>
        <comment>Warning message informative text</comment>
        <translation>Please select a new projects root directory.</translation>
    </message>
    <message>
        <source>The path &quot;%1&quot; does not exist. Would you like to create it?</source>
        <comment>Warning Message</comment>
        <translation>The path &quot;%1&quot; does not exist. Would you like to create it?</translation>
    </message>
    <message>
        <source>Error creating &quot;%1&quot;</source>
        <comment>Error Message</comment>
        <translation>Error creating &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Select Projects Root Directory</source>
        <comment>Caption</comment>
        <translation>Select Projects Root Directory</translation>
    </message>
    <message>
        <source>No projects directory was set. Defaulting to the public documents directory</source>
        <comment>Informative message</comment>
        <translation>No projects directory was set. Defaulting to the public documents directory</translation>
    </message>
</context>
<context>
    <name>FoundFilesModel</name>
    <message>
        <source>Search is complete. There are no results to display.</source>
        <comment>Search status</comment>
        <translation>Search is complete. There are no results to display.</translation>
    </message>
    <message>
        <source>%L1 KB</source>
        <translation>%L1 KB</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>Column header</comment>
        <translation>Name</translation>
    </message>
    <message>
        <source>Size</source>
        <comment>Column header</comment>
        <translation>Size</translation>
    </message>
    <message>
        <source>Last Modified</source>
        <comment>Column header</comment>
        <translation>Last Modified</translation>
    </message>
</context>
<context>
    <name>GatedXml</name>
    <message>
        <source>elements are nested too deeply</source>
        <translation>elements are nested too deeply</translation>
    </message>
    <message>
        <source>document type declarations are not allowed</source>
        <translation>document type declarations are not allowed</translation>
    </message>
    <message>
        <source>too many elements</source>
        <translation>too many elements</translation>
    </message>
    <message>
        <source>the document is too large</source>
        <translation>the document is too large</translation>
    </message>
</context>
<context>
    <name>GraphicalReportDocument</name>
    <message>
        <source>Undo</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Redo</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Save As Favourite. Next time you create a new report it look like this report.</source>
        <translation>Save As Favourite. Next time you create a new report it look like this report.</translation>
    </message>
    <message>
        <source>Download data from tester</source>
        <translation>Download data from tester</translation>
    </message>
    <message>
        <source>Import data from file</source>
        <translation>Import data from file</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Print</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Export to PDF</translation>
    </message>
    <message>
        <source>Save changes to %1?</source>
        <translation>Save changes to %1?</translation>
    </message>
    <message>
        <source>Saving this document as a favourite means that every time you create a new document of this type it will look like this document.</source>
        <translation>Saving this document as a favourite means that every time you create a new document of this type it will look like this document.</translation>
    </message>
    <message>
        <source>Are you sure you want to overwrite the favourite?
(NOTE: You may restore the default document at any time from the settings.)</source>
        <translation>Are you sure you want to overwrite the favourite?
(NOTE: You may restore the default document at any time from the settings.)</translation>
    </message>
</context>
<context>
    <name>GraphicsDocument</name>
    <message>
        <source>Zoom In</source>
        <translation>Zoom In</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom Out</translation>
    </message>
</context>
<context>
    <name>GraphicsTextItem</name>
    <message>
        <source>Cut</source>
        <translation>Cut</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Redo</translation>
    </message>
</context>
<context>
    <name>HideableMessage</name>
    <message>
        <source>Do not show this message again</source>
        <translation>Do not show this message again</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveDatabase</name>
    <message>
        <source>Kelmar</source>
        <translation>Kelmar</translation>
    </message>
    <message>
        <source>The curve has more than %1 points.</source>
        <comment>Error Message</comment>
        <translation>The curve has more than %1 points.</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveDetailsDialog</name>
    <message>
        <source>Curve Details</source>
        <translation>Curve Details</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>Title:</translation>
    </message>
    <message>
        <source>Test Details</source>
        <translation>Test Details</translation>
    </message>
    <message>
        <source>Tester Serial No:</source>
        <translation>Tester Serial No:</translation>
    </message>
    <message>
        <source>Tester Memory Location:</source>
        <translation>Tester Memory Location:</translation>
    </message>
    <message>
        <source>Test Date:</source>
        <translation>Test Date:</translation>
    </message>
    <message>
        <source>Irradiance: (W/m&lt;sup&gt;2&lt;/sup&gt;)</source>
        <translation>Irradiance: (W/m&lt;sup&gt;2&lt;/sup&gt;)</translation>
    </message>
    <message>
        <source>Irradiance (W/m²)</source>
        <translation>Irradiance (W/m²)</translation>
    </message>
    <message>
        <source>Cell Temperature: (°C)</source>
        <translation>Cell Temperature: (°C)</translation>
    </message>
    <message>
        <source>Ambient Temperature: (°C)</source>
        <translation>Ambient Temperature: (°C)</translation>
    </message>
    <message>
        <source>Open Circuit Voltage (V):</source>
        <translation>Open Circuit Voltage (V):</translation>
    </message>
    <message>
        <source>Short Circuit Current (A):</source>
        <translation>Short Circuit Current (A):</translation>
    </message>
    <message>
        <source>Voltage at mpp (V):</source>
        <translation>Voltage at mpp (V):</translation>
    </message>
    <message>
        <source>Current at mpp (A):</source>
        <translation>Current at mpp (A):</translation>
    </message>
    <message>
        <source>Fill Factor:</source>
        <translation>Fill Factor:</translation>
    </message>
    <message>
        <source>Clamp Current at mpp: (A)</source>
        <translation>Clamp Current at mpp: (A)</translation>
    </message>
    <message>
        <source>Protective Earth R:  (Ω)</source>
        <translation>Protective Earth R:  (Ω)</translation>
    </message>
    <message>
        <source>Isolation Voltage (V):</source>
        <translation>Isolation Voltage (V):</translation>
    </message>
    <message>
        <source>Isolation Resistance: (MΩ)</source>
        <translation>Isolation Resistance: (MΩ)</translation>
    </message>
    <message>
        <source>Module Details</source>
        <translation>Module Details</translation>
    </message>
    <message>
        <source>Choose Module</source>
        <translation>Choose Module</translation>
    </message>
    <message>
        <source>Favourites only</source>
        <translation>Favourites only</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>Module</translation>
    </message>
    <message>
        <source>Voc:</source>
        <translation>Voc:</translation>
    </message>
    <message>
        <source>Isc:</source>
        <translation>Isc:</translation>
    </message>
    <message>
        <source>Vmpp:</source>
        <translation>Vmpp:</translation>
    </message>
    <message>
        <source>Impp:</source>
        <translation>Impp:</translation>
    </message>
    <message>
        <source>No. in Series:</source>
        <translation>No. in Series:</translation>
    </message>
    <message>
        <source>No. in Parallel:</source>
        <translation>No. in Parallel:</translation>
    </message>
    <message>
        <source>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;a:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (A/°C)&lt;/font&gt;</source>
        <translation>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;a:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (A/°C)&lt;/font&gt;</translation>
    </message>
    <message>
        <source>Current-Temperature coefficient e.g. 0.003</source>
        <translation>Current-Temperature coefficient e.g. 0.003</translation>
    </message>
    <message>
        <source>alpha (A/°C)</source>
        <translation>alpha (A/°C)</translation>
    </message>
    <message>
        <source>Enter value as a percentage of Isc</source>
        <translation>Enter value as a percentage of Isc</translation>
    </message>
    <message>
        <source>alpha in %/°C</source>
        <translation>alpha in %/°C</translation>
    </message>
    <message>
        <source>%/°C ...</source>
        <translation>%/°C ...</translation>
    </message>
    <message>
        <source>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;b:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (V/°C)&lt;/font&gt;</source>
        <translation>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;b:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (V/°C)&lt;/font&gt;</translation>
    </message>
    <message>
        <source>Voltage-Temperature coefficient e.g. -0.14</source>
        <translation>Voltage-Temperature coefficient e.g. -0.14</translation>
    </message>
    <message>
        <source>beta (V/°C)</source>
        <translation>beta (V/°C)</translation>
    </message>
    <message>
        <source>Enter value as a percentage of Voc</source>
        <translation>Enter value as a percentage of Voc</translation>
    </message>
    <message>
        <source>beta in %/°C</source>
        <translation>beta in %/°C</translation>
    </message>
    <message>
        <source>Rs: (Ω)</source>
        <translation>Rs: (Ω)</translation>
    </message>
    <message>
        <source>STC Calculation</source>
        <translation>STC Calculation</translation>
    </message>
    <message>
        <source>Anderson</source>
        <translation>Anderson</translation>
    </message>
    <message>
        <source>IEC60891 procedure 1</source>
        <translation>IEC60891 procedure 1</translation>
    </message>
    <message>
        <source>Blässer</source>
        <translation>Blässer</translation>
    </message>
    <message>
        <source>delta:</source>
        <translation>delta:</translation>
    </message>
    <message>
        <source>Anderson&apos;s delta coefficient:
mono-Crystalline 0.085
multi-Crystalline 0.110
Thin-Film 0.063</source>
        <translation>Anderson&apos;s delta coefficient:
mono-Crystalline 0.085
multi-Crystalline 0.110
Thin-Film 0.063</translation>
    </message>
    <message>
        <source>K:</source>
        <translation>K:</translation>
    </message>
    <message>
        <source>a:</source>
        <translation>a:</translation>
    </message>
    <message>
        <source>b:</source>
        <translation>b:</translation>
    </message>
    <message>
        <source>Changes to the PV string data are automatically saved when OK is pressed.
</source>
        <translation>Changes to the PV string data are automatically saved when OK is pressed.
</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveDocument</name>
    <message>
        <source>Export Points</source>
        <translation>Export Points</translation>
    </message>
    <message>
        <source>Save changes to %1?</source>
        <comment>Warning Message</comment>
        <translation>Save changes to %1?</translation>
    </message>
    <message>
        <source>Import CSV File</source>
        <translation>Import CSV File</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveDocumentActions</name>
    <message>
        <source>Print</source>
        <comment>Tool tip hint</comment>
        <translation>Print</translation>
    </message>
    <message>
        <source>Save</source>
        <comment>Tool tip hint</comment>
        <translation>Save</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <comment>Tool tip hint</comment>
        <translation>Export to PDF</translation>
    </message>
    <message>
        <source>Export to Image</source>
        <comment>Tool tip hint</comment>
        <translation>Export to Image</translation>
    </message>
    <message>
        <source>Insert Row</source>
        <comment>Tool tip hint</comment>
        <translation>Insert Row</translation>
    </message>
    <message>
        <source>Delete Row</source>
        <comment>Tool tip hint</comment>
        <translation>Delete Row</translation>
    </message>
    <message>
        <source>IV</source>
        <translation>IV</translation>
    </message>
    <message>
        <source>Show IV Curves</source>
        <comment>Tool tip hint</comment>
        <translation>Show IV Curves</translation>
    </message>
    <message>
        <source>PWR</source>
        <translation>PWR</translation>
    </message>
    <message>
        <source>Show VP Power Curves</source>
        <comment>Tool tip hint</comment>
        <translation>Show VP Power Curves</translation>
    </message>
    <message>
        <source>MEAS</source>
        <translation>MEAS</translation>
    </message>
    <message>
        <source>Show Measured Curve Data</source>
        <comment>Tool tip hint</comment>
        <translation>Show Measured Curve Data</translation>
    </message>
    <message>
        <source>STC</source>
        <translation>STC</translation>
    </message>
    <message>
        <source>Show STC-corrected Curves</source>
        <comment>Tool tip hint</comment>
        <translation>Show STC-corrected Curves</translation>
    </message>
    <message>
        <source>NOM</source>
        <translation>NOM</translation>
    </message>
    <message>
        <source>Show Nominal Curve</source>
        <comment>Tool tip hint</comment>
        <translation>Show Nominal Curve</translation>
    </message>
    <message>
        <source>Download</source>
        <comment>Tool tip hint</comment>
        <translation>Download</translation>
    </message>
    <message>
        <source>Download data from tester</source>
        <comment>Tool tip hint</comment>
        <translation>Download data from tester</translation>
    </message>
    <message>
        <source>View Details</source>
        <comment>Tool tip hint</comment>
        <translation>View Details</translation>
    </message>
    <message>
        <source>View Details from tester</source>
        <comment>Tool tip hint</comment>
        <translation>View Details from tester</translation>
    </message>
    <message>
        <source>Manage Module Database</source>
        <comment>Tool tip hint</comment>
        <translation>Manage Module Database</translation>
    </message>
    <message>
        <source>Import CSV</source>
        <comment>Tool tip hint</comment>
        <translation>Import CSV</translation>
    </message>
    <message>
        <source>Set PV Module Type</source>
        <comment>Tool tip hint</comment>
        <translation>Set PV Module Type</translation>
    </message>
    <message>
        <source>Export MEAS IV Curve Points</source>
        <comment>Tool tip hint</comment>
        <translation>Export MEAS IV Curve Points</translation>
    </message>
    <message>
        <source>Export Measured IV Curve Points in CSV format</source>
        <comment>Tool tip hint</comment>
        <translation>Export Measured IV Curve Points in CSV format</translation>
    </message>
    <message>
        <source>Export STC IV Curve Points</source>
        <comment>Tool tip hint</comment>
        <translation>Export STC IV Curve Points</translation>
    </message>
    <message>
        <source>Export STC IV Curve Points in CSV format</source>
        <comment>Tool tip hint</comment>
        <translation>Export STC IV Curve Points in CSV format</translation>
    </message>
    <message>
        <source>Export MEAS PWR Curve Points</source>
        <comment>Tool tip hint</comment>
        <translation>Export MEAS PWR Curve Points</translation>
    </message>
    <message>
        <source>Export Measured Power Curve Points in CSV format</source>
        <comment>Tool tip hint</comment>
        <translation>Export Measured Power Curve Points in CSV format</translation>
    </message>
    <message>
        <source>Export STC PWR Curve Points</source>
        <comment>Tool tip hint</comment>
        <translation>Export STC PWR Curve Points</translation>
    </message>
    <message>
        <source>Export STC Power Curve Points in CSV format</source>
        <comment>Tool tip hint</comment>
        <translation>Export STC Power Curve Points in CSV format</translation>
    </message>
    <message>
        <source>Set Colour</source>
        <comment>Tool tip hint</comment>
        <translation>Set Colour</translation>
    </message>
    <message>
        <source>Change the colour of lines on the graph associated with this string</source>
        <comment>Tool tip hint</comment>
        <translation>Change the colour of lines on the graph associated with this string</translation>
    </message>
    <message>
        <source>Curve Report</source>
        <comment>Tool tip hint</comment>
        <translation>Curve Report</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveGraph</name>
    <message>
        <source>Voltage (V)</source>
        <translation>Voltage (V)</translation>
    </message>
    <message>
        <source>Current (A)</source>
        <translation>Current (A)</translation>
    </message>
    <message>
        <source>Power (W)</source>
        <translation>Power (W)</translation>
    </message>
    <message>
        <source>IV Curve</source>
        <translation>IV Curve</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveGraphModel</name>
    <message>
        <source>Internal error: no data associated with string</source>
        <translation>Internal error: no data associated with string</translation>
    </message>
    <message>
        <source>IV curve data not found in collection</source>
        <comment>Error Message</comment>
        <translation>IV curve data not found in collection</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveModulesChooser</name>
    <message>
        <source>Choose Module</source>
        <translation>Choose Module</translation>
    </message>
    <message>
        <source>Favourites only</source>
        <translation>Favourites only</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>Module</translation>
    </message>
    <message>
        <source>Number of modules in series:</source>
        <translation>Number of modules in series:</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveModulesDlg</name>
    <message>
        <source>PV Modules</source>
        <translation>PV Modules</translation>
    </message>
    <message>
        <source>PV Module Database</source>
        <translation>PV Module Database</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source> (Copy)</source>
        <translation> (Copy)</translation>
    </message>
    <message>
        <source>Kelmar</source>
        <translation>Kelmar</translation>
    </message>
    <message>
        <source>Deleting a preloaded module.
%1
Do you wish to continue?</source>
        <translation>Deleting a preloaded module.
%1
Do you wish to continue?</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveModulesEditDlg</name>
    <message>
        <source>Edit Module</source>
        <translation>Edit Module</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Description:</translation>
    </message>
    <message>
        <source>Favourite</source>
        <translation>Favourite</translation>
    </message>
    <message>
        <source>Voc: (V)</source>
        <translation>Voc: (V)</translation>
    </message>
    <message>
        <source>Voltage at open-circuit</source>
        <translation>Voltage at open-circuit</translation>
    </message>
    <message>
        <source>Isc: (A)</source>
        <translation>Isc: (A)</translation>
    </message>
    <message>
        <source>Current at short-circuit</source>
        <translation>Current at short-circuit</translation>
    </message>
    <message>
        <source>Vmpp: (V)</source>
        <translation>Vmpp: (V)</translation>
    </message>
    <message>
        <source>Voltage at maximum power point</source>
        <translation>Voltage at maximum power point</translation>
    </message>
    <message>
        <source>Impp: (A)</source>
        <translation>Impp: (A)</translation>
    </message>
    <message>
        <source>Current at maximum power point</source>
        <translation>Current at maximum power point</translation>
    </message>
    <message>
        <source>Rs: (Ω)</source>
        <translation>Rs: (Ω)</translation>
    </message>
    <message>
        <source>series resistance e.g. 0.3</source>
        <translation>series resistance e.g. 0.3</translation>
    </message>
    <message>
        <source>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;a:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (A/°C)&lt;/font&gt;</source>
        <translation>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;a:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (A/°C)&lt;/font&gt;</translation>
    </message>
    <message>
        <source>Current-Temperature coefficient e.g. 0.003</source>
        <translation>Current-Temperature coefficient e.g. 0.003</translation>
    </message>
    <message>
        <source>alpha (A/°C)</source>
        <translation>alpha (A/°C)</translation>
    </message>
    <message>
        <source>Enter value as a percentage of Isc</source>
        <translation>Enter value as a percentage of Isc</translation>
    </message>
    <message>
        <source>alpha in %/°C</source>
        <translation>alpha in %/°C</translation>
    </message>
    <message>
        <source>%/°C ...</source>
        <translation>%/°C ...</translation>
    </message>
    <message>
        <source>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;b:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (V/°C)&lt;/font&gt;</source>
        <translation>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;b:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (V/°C)&lt;/font&gt;</translation>
    </message>
    <message>
        <source>Voltage-Temperature coefficient e.g. -0.14</source>
        <translation>Voltage-Temperature coefficient e.g. -0.14</translation>
    </message>
    <message>
        <source>beta (V/°C)</source>
        <translation>beta (V/°C)</translation>
    </message>
    <message>
        <source>Enter value as a percentage of Voc</source>
        <translation>Enter value as a percentage of Voc</translation>
    </message>
    <message>
        <source>beta in %/°C</source>
        <translation>beta in %/°C</translation>
    </message>
    <message>
        <source>delta:</source>
        <translation>delta:</translation>
    </message>
    <message>
        <source>Anderson&apos;s delta coefficient:
mono-Crystalline 0.085
multi-Crystalline 0.110
Thin-Film 0.063</source>
        <translation>Anderson&apos;s delta coefficient:
mono-Crystalline 0.085
multi-Crystalline 0.110
Thin-Film 0.063</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveTreeModel</name>
    <message>
        <source>Item Description</source>
        <comment>Tree Control Header</comment>
        <translation>Item Description</translation>
    </message>
    <message>
        <source>Tester Index</source>
        <comment>Tree Control Header</comment>
        <translation>Tester Index</translation>
    </message>
    <message>
        <source>Date Tested</source>
        <comment>Tree Control Header</comment>
        <translation>Date Tested</translation>
    </message>
    <message>
        <source>Irr</source>
        <comment>Tree Control Header</comment>
        <translation>Irr</translation>
    </message>
    <message>
        <source>Tcell</source>
        <comment>Tree Control Header</comment>
        <translation>Tcell</translation>
    </message>
    <message>
        <source>FF</source>
        <comment>Tree Control Header</comment>
        <translation>FF</translation>
    </message>
    <message>
        <source> </source>
        <comment>Tree Control Header</comment>
        <translation> </translation>
    </message>
    <message>
        <source>The tree of curves cannot be read.</source>
        <comment>Error Message</comment>
        <translation>The tree of curves cannot be read.</translation>
    </message>
    <message>
        <source>&lt;New Row&gt;</source>
        <translation>&lt;New Row&gt;</translation>
    </message>
    <message>
        <source>Invalid checksum. Internal error in test instrument or the CSV data has been modified</source>
        <translation>Invalid checksum. Internal error in test instrument or the CSV data has been modified</translation>
    </message>
    <message>
        <source>Checksum ignored. Spreadsheet data modification was detected</source>
        <translation>Checksum ignored. Spreadsheet data modification was detected</translation>
    </message>
    <message>
        <source>Irradiance warning. Greater than 10% variance during test</source>
        <translation>Irradiance warning. Greater than 10% variance during test</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveTypeLegend</name>
    <message>
        <source>STC</source>
        <translation>STC</translation>
    </message>
    <message>
        <source>MEAS</source>
        <translation>MEAS</translation>
    </message>
    <message>
        <source>NOM</source>
        <translation>NOM</translation>
    </message>
</context>
<context>
    <name>IVCurve::ExceptionBox</name>
    <message>
        <source>Exception thrown: %1</source>
        <translation>Exception thrown: %1</translation>
    </message>
</context>
<context>
    <name>IVCurve::GraphExport</name>
    <message>
        <source>Error opening %1 for writing</source>
        <translation>Error opening %1 for writing</translation>
    </message>
    <message>
        <source>Export PDF</source>
        <comment>File Save Dialog</comment>
        <translation>Export PDF</translation>
    </message>
    <message>
        <source>PDF Files (*.pdf)</source>
        <comment>File Save Dialog</comment>
        <translation>PDF Files (*.pdf)</translation>
    </message>
    <message>
        <source>Save Image</source>
        <comment>File Save Dialog</comment>
        <translation>Save Image</translation>
    </message>
    <message>
        <source>Images (*.bmp *.jpeg *.png)</source>
        <comment>File Save Dialog</comment>
        <translation>Images (*.bmp *.jpeg *.png)</translation>
    </message>
</context>
<context>
    <name>IVCurve::ModuleCsv</name>
    <message>
        <source>it has no name</source>
        <translation>it has no name</translation>
    </message>
    <message>
        <source>%1 is no number</source>
        <translation>%1 is no number</translation>
    </message>
    <message>
        <source>V_mp_ref is not between 0 and V_oc_ref</source>
        <translation>V_mp_ref is not between 0 and V_oc_ref</translation>
    </message>
    <message>
        <source>I_mp_ref is not between 0 and I_sc_ref</source>
        <translation>I_mp_ref is not between 0 and I_sc_ref</translation>
    </message>
    <message>
        <source>R_s is below 0</source>
        <translation>R_s is below 0</translation>
    </message>
</context>
<context>
    <name>IVCurve::ModuleDatabase</name>
    <message>
        <source>Kelmar</source>
        <translation>Kelmar</translation>
    </message>
    <message>
        <source>File is missing:
 %1</source>
        <translation>File is missing:
 %1</translation>
    </message>
</context>
<context>
    <name>IVCurve::PercentEntry</name>
    <message>
        <source>Kelmar</source>
        <translation>Kelmar</translation>
    </message>
    <message>
        <source>Enter value in percent per centigrade</source>
        <translation>Enter value in percent per centigrade</translation>
    </message>
    <message>
        <source>Isc is missing or zero</source>
        <translation>Isc is missing or zero</translation>
    </message>
    <message>
        <source>Voc is missing or zero</source>
        <translation>Voc is missing or zero</translation>
    </message>
</context>
<context>
    <name>IVCurve::PlainTables</name>
    <message>
        <source>&quot;%1&quot; is a view and not a table.</source>
        <comment>Error Message</comment>
        <translation>&quot;%1&quot; is a view and not a table.</translation>
    </message>
    <message>
        <source>A trigger is set on the table &quot;%1&quot;.</source>
        <comment>Error Message</comment>
        <translation>A trigger is set on the table &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>The table &quot;%1&quot; is a virtual one.</source>
        <comment>Error Message</comment>
        <translation>The table &quot;%1&quot; is a virtual one.</translation>
    </message>
    <message>
        <source>The table &quot;%1&quot; has computed columns.</source>
        <comment>Error Message</comment>
        <translation>The table &quot;%1&quot; has computed columns.</translation>
    </message>
</context>
<context>
    <name>IVCurve::PointExport</name>
    <message>
        <source>MEAS</source>
        <translation>MEAS</translation>
    </message>
    <message>
        <source>PWR</source>
        <translation>PWR</translation>
    </message>
    <message>
        <source>STC</source>
        <translation>STC</translation>
    </message>
    <message>
        <source>Irradiance</source>
        <translation>Irradiance</translation>
    </message>
    <message>
        <source>Ambient Temp</source>
        <translation>Ambient Temp</translation>
    </message>
    <message>
        <source>Cell Temp</source>
        <translation>Cell Temp</translation>
    </message>
    <message>
        <source>Fill Factor</source>
        <translation>Fill Factor</translation>
    </message>
    <message>
        <source> Could not open file:
 %1</source>
        <translation> Could not open file:
 %1</translation>
    </message>
</context>
<context>
    <name>IVCurve::StringExports</name>
    <message>
        <source>Save PDF file</source>
        <comment>File Save Dialog</comment>
        <translation>Save PDF file</translation>
    </message>
    <message>
        <source>PDF file (*.pdf)</source>
        <comment>File Save Dialog</comment>
        <translation>PDF file (*.pdf)</translation>
    </message>
    <message>
        <source>Save CSV file</source>
        <comment>File Save Dialog</comment>
        <translation>Save CSV file</translation>
    </message>
    <message>
        <source>CSV file (*.csv)</source>
        <comment>File Save Dialog</comment>
        <translation>CSV file (*.csv)</translation>
    </message>
</context>
<context>
    <name>IVCurve::TesterCurveImporter</name>
    <message>
        <source>Error opening %1 for reading.</source>
        <comment>Error Message</comment>
        <translation>Error opening %1 for reading.</translation>
    </message>
    <message>
        <source>Checksum failed on line number %1</source>
        <translation>Checksum failed on line number %1</translation>
    </message>
    <message>
        <source>Continue showing errors during this import</source>
        <translation>Continue showing errors during this import</translation>
    </message>
    <message>
        <source>String %1</source>
        <translation>String %1</translation>
    </message>
</context>
<context>
    <name>InstallationDiagramDocument</name>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Print</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Export to PDF</translation>
    </message>
    <message>
        <source>Wire</source>
        <translation>Wire</translation>
    </message>
    <message>
        <source>Single wire</source>
        <translation>Single wire</translation>
    </message>
    <message>
        <source>DC cable</source>
        <translation>DC cable</translation>
    </message>
    <message>
        <source>AC cable</source>
        <translation>AC cable</translation>
    </message>
    <message>
        <source>Save changes to %1?</source>
        <comment>Warning Message</comment>
        <translation>Save changes to %1?</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>Changing the language deletes any Report Favourites.
</source>
        <translation>Changing the language deletes any Report Favourites.
</translation>
    </message>
    <message>
        <source>The application must be restarted when the language is changed.</source>
        <translation>The application must be restarted when the language is changed.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Window</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Document Browser</source>
        <translation>Document Browser</translation>
    </message>
    <message>
        <source>Document Search</source>
        <translation>Document Search</translation>
    </message>
    <message>
        <source>New Inspection Report</source>
        <translation>New Inspection Report</translation>
    </message>
    <message>
        <source>New PV Array Test Report</source>
        <translation>New PV Array Test Report</translation>
    </message>
    <message>
        <source>New Verification Certificate</source>
        <translation>New Verification Certificate</translation>
    </message>
    <message>
        <source>New Installation Diagram</source>
        <translation>New Installation Diagram</translation>
    </message>
    <message>
        <source>New Checklist</source>
        <translation>New Checklist</translation>
    </message>
    <message>
        <source>New Curve Data</source>
        <translation>New Curve Data</translation>
    </message>
    <message>
        <source>New Client Handover Pack</source>
        <translation>New Client Handover Pack</translation>
    </message>
    <message>
        <source>Create a new folder with a checklist in it</source>
        <translation>Create a new folder with a checklist in it</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>New Folder</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rename</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Settings...</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>About...</translation>
    </message>
    <message>
        <source>Screencast Tutorial...</source>
        <translation>Screencast Tutorial...</translation>
    </message>
    <message>
        <source>PDF Instruction Manual</source>
        <translation>PDF Instruction Manual</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Import...</translation>
    </message>
    <message>
        <source>Download ...</source>
        <translation>Download ...</translation>
    </message>
    <message>
        <source>ScreenCast Tutorial</source>
        <translation>ScreenCast Tutorial</translation>
    </message>
    <message>
        <source>Reset Window Layout</source>
        <translation>Reset Window Layout</translation>
    </message>
    <message>
        <source>Import CSV File</source>
        <translation>Import CSV File</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV Files (*.csv)</translation>
    </message>
</context>
<context>
    <name>MdiWindow</name>
    <message>
        <source>Cl&amp;ose</source>
        <translation>Cl&amp;ose</translation>
    </message>
    <message>
        <source>Close the active window</source>
        <translation>Close the active window</translation>
    </message>
    <message>
        <source>&amp;Tile</source>
        <translation>&amp;Tile</translation>
    </message>
    <message>
        <source>Tile the windows</source>
        <translation>Tile the windows</translation>
    </message>
    <message>
        <source>&amp;Cascade</source>
        <translation>&amp;Cascade</translation>
    </message>
    <message>
        <source>Cascade the windows</source>
        <translation>Cascade the windows</translation>
    </message>
    <message>
        <source>&amp;Reset Window Layout</source>
        <translation>&amp;Reset Window Layout</translation>
    </message>
    <message>
        <source>Restore the default Window layout</source>
        <translation>Restore the default Window layout</translation>
    </message>
    <message>
        <source>Ne&amp;xt</source>
        <translation>Ne&amp;xt</translation>
    </message>
    <message>
        <source>Move the focus to the next window</source>
        <translation>Move the focus to the next window</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <translation>Pre&amp;vious</translation>
    </message>
    <message>
        <source>Move the focus to the previous window</source>
        <translation>Move the focus to the previous window</translation>
    </message>
    <message>
        <source>&amp;%1 %2</source>
        <translation>&amp;%1 %2</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>PdfTarget</name>
    <message>
        <source>Export PDF</source>
        <translation>Export PDF</translation>
    </message>
    <message>
        <source>PDF Files (*.pdf)</source>
        <translation>PDF Files (*.pdf)</translation>
    </message>
</context>
<context>
    <name>PrintedSheet</name>
    <message>
        <source>Created by %1.</source>
        <translation>Created by %1.</translation>
    </message>
</context>
<context>
    <name>ProjectCommands</name>
    <message>
        <source>%1/New Folder</source>
        <translation>%1/New Folder</translation>
    </message>
    <message>
        <source>%1/New Client Handover Pack</source>
        <translation>%1/New Client Handover Pack</translation>
    </message>
</context>
<context>
    <name>ProjectModel</name>
    <message>
        <source>Do you want to move these %1 items to the trash?</source>
        <comment>User prompt</comment>
        <translation>Do you want to move these %1 items to the trash?</translation>
    </message>
    <message>
        <source>Do you want to move &quot;%1&quot; to the trash?</source>
        <comment>User prompt</comment>
        <translation>Do you want to move &quot;%1&quot; to the trash?</translation>
    </message>
    <message>
        <source>Could not move to the trash:
%1</source>
        <comment>Warning Message</comment>
        <translation>Could not move to the trash:
%1</translation>
    </message>
</context>
<context>
    <name>ProjectTreeView</name>
    <message>
        <source>This will copy %1 files to your project area.</source>
        <comment>Informative Message</comment>
        <translation>This will copy %1 files to your project area.</translation>
    </message>
    <message>
        <source>This will copy &quot;%1&quot; to you project area.</source>
        <comment>Informative Message</comment>
        <translation>This will copy &quot;%1&quot; to you project area.</translation>
    </message>
    <message>
        <source>Do you want to proceed?</source>
        <comment>User prompt</comment>
        <translation>Do you want to proceed?</translation>
    </message>
</context>
<context>
    <name>ReportPage</name>
    <message>
        <source>Add Image</source>
        <translation>Add Image</translation>
    </message>
</context>
<context>
    <name>ReportResizableImage</name>
    <message>
        <source>Select Image</source>
        <translation>Select Image</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.bmp *.tif *.tiff *.svg)</source>
        <translation>Images (*.png *.jpg *.jpeg *.bmp *.tif *.tiff *.svg)</translation>
    </message>
    <message>
        <source>Delete Image</source>
        <translation>Delete Image</translation>
    </message>
</context>
<context>
    <name>ReportScene</name>
    <message>
        <source>Error opening %1 for reading</source>
        <translation>Error opening %1 for reading</translation>
    </message>
    <message>
        <source>XML validation error in %1 on line %2, column %3</source>
        <translation>XML validation error in %1 on line %2, column %3</translation>
    </message>
    <message>
        <source>Error opening %1 for writing</source>
        <translation>Error opening %1 for writing</translation>
    </message>
    <message>
        <source>Is the file read-only or has it been deleted?</source>
        <translation>Is the file read-only or has it been deleted?</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>Font Settings...</source>
        <translation>Font Settings...</translation>
    </message>
</context>
<context>
    <name>ResultsImporter</name>
    <message>
        <source>Programming error: Invalid row: %1</source>
        <comment>Error Message</comment>
        <translation>Programming error: Invalid row: %1</translation>
    </message>
    <message>
        <source>You are attempting to insert data into an older version of the Array Test Report document. 								   Please create a new Array Test Report if you would like to import data into it. 								   You may need to restore the Array Test Document in the favourites settings if the favourite 								   was created using an earlier version of %1.</source>
        <comment>Troubleshoot advice</comment>
        <translation>You are attempting to insert data into an older version of the Array Test Report document. 								   Please create a new Array Test Report if you would like to import data into it. 								   You may need to restore the Array Test Document in the favourites settings if the favourite 								   was created using an earlier version of %1.</translation>
    </message>
    <message>
        <source>Unable to find where to insert data. Please ensure an Array Test Report has focus before inserting the data.</source>
        <comment>Troubleshoot advice</comment>
        <translation>Unable to find where to insert data. Please ensure an Array Test Report has focus before inserting the data.</translation>
    </message>
    <message>
        <source>No more room left in the report table. Please use another Array Test Report.</source>
        <comment>Troubleshoot advice</comment>
        <translation>No more room left in the report table. Please use another Array Test Report.</translation>
    </message>
</context>
<context>
    <name>TesterTestType</name>
    <message>
        <source>Continuity</source>
        <translation>Continuity</translation>
    </message>
    <message>
        <source>AutoTest</source>
        <translation>AutoTest</translation>
    </message>
    <message>
        <source>Positive-earth insulation</source>
        <translation>Positive-earth insulation</translation>
    </message>
    <message>
        <source>Negative-earth insulation</source>
        <translation>Negative-earth insulation</translation>
    </message>
    <message>
        <source>AutoTest &amp; Curve</source>
        <translation>AutoTest &amp; Curve</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unknown</translation>
    </message>
</context>
</TS>
