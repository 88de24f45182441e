<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>KyrApplication</name>
    <message>
        <source>Sheet Forming</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Viewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deformation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Material Test</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test Rig</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Launcher</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Computing Server</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sensor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Large Structure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Production Cell</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KyrChangeLog</name>
    <message>
        <source>new %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 renamed to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>removed %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>changed semantics of %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KyrLibraryHistory</name>
    <message>
        <source>Reports a broken invariant and ends the process.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sorts item9 before item10.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>With its kin for other numbers, the same under every locale.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On Linux only.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finds the next free number of a series of files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gives way when its owner no longer lives.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hands an exception of its work to the thread that waits for it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tells at which byte a file is damaged or cut short.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bounded in memory by ZippedTarLimits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>libKyr %1: changes of the interface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reads and writes quantities as people do.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Kyr_FileParse</name>
    <message>
        <source>column %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>line %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no pair %3=&quot;...&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the line ends too early</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the line is too long</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file ends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file ends where &quot;%2&quot; is expected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands where &quot;%2&quot; is expected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file cannot be read to its end</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a value is missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no integer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not within %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Kyr_Quantity</name>
    <message>
        <source>A number is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No number begins here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A digit is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 may be %2 or %3: write %4 or %5.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; separates no groups of three digits here; the decimal separator is &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A number has only one decimal separator.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no fraction.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no unit here; known are %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot follow here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The smallest value is %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The largest value is %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no kind, unit and decimals.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number is too close to zero.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Either all parts of a sum have a unit or none has.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only one factor may have a unit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A divisor may not have a unit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing can be divided by zero.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A closing parenthesis is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are too many parentheses in each other.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Kyr_Translator</name>
    <message>
        <source>language: english</source>
        <translation>English</translation>
    </message>
    <message>
        <source>language: german</source>
        <translation>German</translation>
    </message>
    <message>
        <source>language: french</source>
        <translation>French</translation>
    </message>
    <message>
        <source>language: japanese</source>
        <translation>Japanese</translation>
    </message>
    <message>
        <source>language: chinese</source>
        <translation>Chinese</translation>
    </message>
    <message>
        <source>language: portuguese</source>
        <translation>Portuguese</translation>
    </message>
</context>
<context>
    <name>Kyr_crash</name>
    <message>
        <source>%1 has crashed. The report is %2, the dump is %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has crashed. The report is %2; there is no dump.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Kyr_diagnostics</name>
    <message>
        <source>line %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>red, green, blue and alpha are numbers from 0 to 255, or together #rrggbbaa</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no font: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the size is a number of points from 0.1 to 10000</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the weight is a number from 1 to 1000, 400 is normal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>behind the weight come italic, underline, strikeout and fixed, each once</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the family is one word, with \_ for each of its blanks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no sound: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the volume is a number from 0 to 100</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the repetitions are a number from 1 to 1000000, or 0 without an end</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is one word, with \_ for each of its blanks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing may follow the repetitions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 exists already and is not replaced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Kyr_zip_err</name>
    <message>
        <source>invalid file version: %1. the file is newer than the actual program version: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown file version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read zip stream header</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>invalid zip stream header</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>invalid header: the file was transferred by ascii-ftp.
it must be transferred by binary-ftp.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
