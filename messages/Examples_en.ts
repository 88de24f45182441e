<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Gauge</name>
    <message>
        <source>Gauge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Temperature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Angle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Any unit may follow the number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try gauge --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no gauge for %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows a quantity that is typed as people write it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>quantity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>what the field holds at first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shows this</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in which the quantity is shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>give one quantity, in quotes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the gauge has no unit %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Surface</name>
    <message>
        <source>stopped by the user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Computing curvatures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sorting the corners of triangles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finding neighbours and normals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Smoothing normals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 copies of %2 are too many points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>reading stopped early</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the content is no surface of this program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lines with unknown keys, all told: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown key, line skipped: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in less than 2 ms</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>at %1 MB/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the system starts no threads for the analysis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a coordinate must be finite</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no such point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>missing are %1 and %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged: %1 of its %2 bytes of content is lost; the others were checked and are good</source>
        <comment>the file is damaged: %1 of its %2 bytes of content are lost; the others were checked and are good</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged, as byte %1 shows; what was read before (%2 byte) may be wrong</source>
        <comment>the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file ends too early, at byte %1; the first %2 byte of content is good</source>
        <comment>the file ends too early, at byte %1; the first %2 bytes of content are good</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>%1 bytes</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 line</source>
        <comment>%1 lines</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 data line</source>
        <comment>%1 data lines</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 open edge</source>
        <comment>%1 open edges</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 point</source>
        <comment>%1 points</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 triangle</source>
        <comment>%1 triangles</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 worker</source>
        <comment>%1 workers</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Tour</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>harmless here: the content is the same</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TAKEN FOR GOOD DATA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cut short</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>one bit flipped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sent as text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>newer program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read the scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>holds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2, read %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>read %1, %2 of them without geometry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>repeated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 times, side by side: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Measure it (one unit of the file is 1 %1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is too large to be measured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the surface has %1; its volume is closed over the middle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>jobs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 s of computing in %2 s: %3 processors busy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mean curvature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lowest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5% lie below</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>median</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5% lie above</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>highest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Analyse it on %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>curvatures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 without a curvature: no triangle of any area</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep it in a project file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>wrote %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>time of writing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>content</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>packed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2% of the content</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>written %1, read %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>compared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>all %1 equal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DIFFERENT: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>libKyr %1: a scan from text to a project file and back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What damage looks like (on copies)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no damaged copy was taken for good data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A DAMAGED COPY WAS TAKEN FOR GOOD</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Everything held.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SOMETHING DID NOT HOLD.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write to standard output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; nothing is half written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>out of memory (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>working</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the system starts no thread for the analysis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot pack %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot make a folder in %1 for temporary files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pack it all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try tour --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the project file would replace %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the archive would replace %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reads a scan, measures it, keeps it in a project file and packs it all.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shows this</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an OBJ file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>what one unit of the file is; default mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>where the project file goes; default here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>where it is all packed as a tar.gz; default beside the project file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>how often the scan is repeated, side by side; default 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>threads that analyse it; default one per processor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>how often normals are smoothed; default 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>give one OBJ file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>saved of it</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, equal to what was written</source>
        <comment>%1 of %2 pieces, equal to what was written</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, NOT WHAT WAS WRITTEN</source>
        <comment>%1 of %2 pieces, NOT WHAT WAS WRITTEN</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>Legend of the colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mean curvature, %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Curvature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mean curvature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ridges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hollows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try viewer --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no size: %1; it should look like 1280x800</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows a scan, coloured by its curvature.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shows this</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an OBJ file or a project (.kyr)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>what one unit of an OBJ file is; default mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>how often the scan is shown, side by side; default 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>of the window; default 1280x800</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>give one file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no number of copies: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a screenshot needs a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan viewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save picture…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Oblique</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F&amp;ront</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ri&amp;ght</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Botto&amp;m</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show all of the scan (F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back to the first view (Home)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop a scan here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an OBJ file, or a project (.kyr)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scans and projects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was not opened: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening %1 was aborted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 – Scan viewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put the message away</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project, %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan, %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the scan is too large to be measured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preparing the picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the system starts no thread for it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is not enough memory for this scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Numbers of the scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit of length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit of length; areas, volumes and curvatures follow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Triangles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open edges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Area</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open surface: its volume is closed over its middle.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Highest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 % lie above</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Median</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 % lie below</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lowest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open one to see its numbers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag to turn  ·  Shift-drag to move  ·  Wheel to zoom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Curvature under the mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress of the computation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abort the computation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stops the computation and keeps what is shown (Esc)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Curvature here  %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture of the scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arrow keys turn it, plus and minus come nearer and go away</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
