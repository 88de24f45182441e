<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
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
        <source>the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file ends too early, at byte %1; the first %2 bytes of content are good</source>
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
        <source>cannot open %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>damaged line: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read %1 to its end</source>
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
        <source>%1, line %2: %3</source>
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
        <source>byte</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>data line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>data lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open edge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open edges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>triangle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>triangles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>worker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>workers</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Tour</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot make a folder for temporary files</source>
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
</context>
</TS>
