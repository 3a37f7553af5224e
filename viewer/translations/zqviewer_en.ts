<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>zqviewer::ComparisonWindow</name>
    <message numerus="yes">
        <source>%n difference(s)</source>
        <translation>
            <numerusform>%n difference</numerusform>
            <numerusform>%n differences</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zqviewer::LiveImage</name>
    <message numerus="yes">
        <source>%n image(s) recorded in %1</source>
        <translation>
            <numerusform>%n image recorded in %1</numerusform>
            <numerusform>%n images recorded in %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n lost</source>
        <translation>
            <numerusform>, %n lost</numerusform>
            <numerusform>, %n lost</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n incomplete</source>
        <translation>
            <numerusform>, %n incomplete</numerusform>
            <numerusform>, %n incomplete</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zqviewer::SettingsWork</name>
    <message numerus="yes">
        <source>%n setting(s) saved in %1</source>
        <translation>
            <numerusform>%n setting saved in %1</numerusform>
            <numerusform>%n settings saved in %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; the file names %n left out.</source>
        <translation>
            <numerusform>; the file names %n left out.</numerusform>
            <numerusform>; the file names %n left out.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zqviewer::ViewerWindow</name>
    <message numerus="yes">
        <source>%n setting(s) differ from those before the camera was lost.</source>
        <translation>
            <numerusform>%n setting differs from that before the camera was lost.</numerusform>
            <numerusform>%n settings differ from those before the camera was lost.</numerusform>
        </translation>
    </message>
</context>
</TS>
