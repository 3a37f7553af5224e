<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>featurebrowser::ZQImageView</name>
    <message>
        <source>The pixel format %1 is unknown.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Images in the pixel format %1 (%2) cannot be shown.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The image is damaged: it has %1 bytes, but %2 pixels in %3 need %4.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An image of %1 pixels cannot be shown.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The image is damaged: lines of %1 bytes cannot hold %2 pixels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera image</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
