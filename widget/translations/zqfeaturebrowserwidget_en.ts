<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>featurebrowser::ChangeStrip</name>
    <message numerus="yes">
        <source>%n feature(s) followed</source>
        <translation>
            <numerusform>%n feature followed</numerusform>
            <numerusform>%n features followed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>featurebrowser::FilterBar</name>
    <message numerus="yes">
        <source>Show %n more</source>
        <comment>features found beyond the visibility level</comment>
        <translation>
            <numerusform>Show %n more</numerusform>
            <numerusform>Show %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hit(s)</source>
        <translation>
            <numerusform>%n hit</numerusform>
            <numerusform>%n hits</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>featurebrowser::RowFacts</name>
    <message numerus="yes">
        <source>at most %n byte(s)</source>
        <translation>
            <numerusform>at most %n byte</numerusform>
            <numerusform>at most %n bytes</numerusform>
        </translation>
    </message>
</context>
</TS>
