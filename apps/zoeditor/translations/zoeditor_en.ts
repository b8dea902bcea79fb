<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>zoeditor::EffectsPane</name>
    <message numerus="yes">
        <source>%n item(s)</source>
        <translation>
            <numerusform>%n item</numerusform>
            <numerusform>%n items</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zoeditor::Window</name>
    <message numerus="yes">
        <source>The settings of %n file(s) are not saved.</source>
        <translation>
            <numerusform>The settings of %n file are not saved.</numerusform>
            <numerusform>The settings of %n files are not saved.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The settings of %n file(s) are saved.</source>
        <translation>
            <numerusform>The settings of %n file are saved.</numerusform>
            <numerusform>The settings of %n files are saved.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zoeditor::ApplyDialog</name>
    <message numerus="yes">
        <source>Apply to %n file(s)</source>
        <translation>
            <numerusform>Apply to %n file</numerusform>
            <numerusform>Apply to %n files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zoeditor::PresetsDialog</name>
    <message numerus="yes">
        <source>&amp;Apply to %n selected file(s)</source>
        <translation>
            <numerusform>&amp;Apply to the selected file</numerusform>
            <numerusform>&amp;Apply to the %n selected files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zoeditor::ConvertDialog</name>
    <message numerus="yes">
        <source>Options of all %n file(s)</source>
        <translation>
            <numerusform>Options of %n file</numerusform>
            <numerusform>Options of all %n files</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Only the %n selected file(s): %1</source>
        <translation>
            <numerusform>Only the selected file: %1</numerusform>
            <numerusform>Only the %n selected files: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All %n file(s)</source>
        <translation>
            <numerusform>%n file</numerusform>
            <numerusform>All %n files</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Convert %n file(s)</source>
        <translation>
            <numerusform>Convert %n file</numerusform>
            <numerusform>Convert %n files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zoeditor::DifferenceList</name>
    <message numerus="yes">
        <source>%n more</source>
        <translation>
            <numerusform>%n more</numerusform>
            <numerusform>%n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zoeditor::TracksDialog</name>
    <message numerus="yes">
        <source>Subtitle files &amp;beside the clip (%n)</source>
        <translation>
            <numerusform>Subtitle file &amp;beside the clip (%n)</numerusform>
            <numerusform>Subtitle files &amp;beside the clip (%n)</numerusform>
        </translation>
    </message>
</context>
</TS>
