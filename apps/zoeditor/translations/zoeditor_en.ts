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
</context>
</TS>
