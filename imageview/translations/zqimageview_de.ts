<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>featurebrowser::ZQImageView</name>
    <message>
        <source>The pixel format %1 is unknown.</source>
        <translation>Das Pixelformat %1 ist unbekannt.</translation>
    </message>
    <message>
        <source>Images in the pixel format %1 (%2) cannot be shown.</source>
        <translation>Bilder im Pixelformat %1 (%2) können nicht angezeigt werden.</translation>
    </message>
    <message>
        <source>The image is damaged: it has %1 bytes, but %2 pixels in %3 need %4.</source>
        <translation>Das Bild ist beschädigt: es hat %1 Bytes, aber %2 Pixel in %3 brauchen %4.</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>Kein Bild</translation>
    </message>
    <message>
        <source>An image of %1 pixels cannot be shown.</source>
        <translation>Ein Bild mit %1 Pixeln kann nicht angezeigt werden.</translation>
    </message>
    <message>
        <source>The image is damaged: lines of %1 bytes cannot hold %2 pixels.</source>
        <translation>Das Bild ist beschädigt: Zeilen von %1 Bytes fassen keine %2 Pixel.</translation>
    </message>
    <message>
        <source>Camera image</source>
        <translation>Kamerabild</translation>
    </message>
</context>
</TS>
