<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>zqviewer::CameraKeeper</name>
    <message>
        <source>The camera answers again; its features are read anew.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The features could not be read: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading was cancelled: rows may be outdated. F5 reads all.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another camera is here now: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconnecting was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected again, but reading was cancelled. F5 reads all features.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another camera is here now: %1;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected again;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::CameraTaskBar</name>
    <message>
        <source>&amp;Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 s</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::EventLog</name>
    <message>
        <source>Written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refused</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Command</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lost</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Event</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Feature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Result</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::HistogramPane</name>
    <message>
        <source>Histogram</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mean %1 %, black %2 %, brightest %3 %</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::ImagePane</name>
    <message>
        <source>St&amp;art images</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>St&amp;op images</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Single image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Single</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Se&amp;veral images…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Use the selected region</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use region</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Have the camera send only the region that was drawn with Shift and the mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use the &amp;whole sensor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Fit the image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the whole image (0)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;1:1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show one pixel of the image as one of the screen (1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark &amp;overexposure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overexposure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark in red what is as bright as the camera can tell</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotate &amp;left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotate &amp;right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flip &amp;horizontally</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flip &amp;vertically</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save this image…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Record images…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Several images</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop after so many images:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This image was taken with other settings: take a new one first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The camera&apos;s region is %1 now.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save this image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Images (*.png *.tif *.tiff)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record images in this folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder &apos;%1&apos; cannot be made.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::LiveImage</name>
    <message>
        <source>Images are being acquired.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Starting the images was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The acquisition has stopped.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n image(s) recorded in %1</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>, none missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; %1 did not arrive and %2 could not be written in time: index.csv says which.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 images/s, %2 MB/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>, %n lost</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n incomplete</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>, recorded %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> (%1 waiting)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::LogPane</name>
    <message>
        <source>All cameras</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text with tabs (*.log *.tsv *.txt);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot write &apos;%1&apos;: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::LostBanner</name>
    <message>
        <source>&amp;Reconnect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find the camera again, or another one in its place</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The values are those of %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looking for the camera…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next try in %1 s.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::OpeningWindow</name>
    <message>
        <source>Simulated camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Try again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The camera&apos;s features cannot be read: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The camera cannot be opened</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::StartPage</name>
    <message>
        <source>Open a camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opened lately and found. Nothing is sent on a network before you look for cameras.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Find cameras</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a &amp;description…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Simulated camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GenICam descriptions (*.xml *.zip);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No cameras were found.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::ViewerWindow</name>
    <message>
        <source>The camera&apos;s features cannot be read: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open a camera…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About &amp;zqviewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About zqviewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>zqviewer %1: features and images of GenICam cameras.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C&amp;amera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read all &amp;features again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reconnect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconnect &amp;by itself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (read-only)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was written, but could not be read back.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zqviewer::Words</name>
    <message>
        <source>see the marked rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 features read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 features could not be read: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot write &apos;%1&apos;: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot write &apos;%1&apos;: its name must end in .png, .tif or .tiff.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be set: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The camera has no %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 × %2 at (%3, %4)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>simulated</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
