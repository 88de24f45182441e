<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Kyr_tool</name>
    <message>
        <source>unknown option &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an argument is missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>one argument too many: &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3, not &quot;%4&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no Base64 at byte %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: ends within a group of four characters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--group takes one of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>how many threads work, 1 to 64; 1 unless told</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>what compresses; zlib unless told</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>how much may come out of the archive, in MiB; 512 unless told</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>writes JSON, for programs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>converts a value, as in: kyr convert 25.4 mm in, kyr convert 25.4mm inch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the kind of both units, as LENGTH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>decimals of the result, 0 to 60</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pixels of an inch, for figures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lists the kinds of quantities, or the units of one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>says whether a zip stream is complete, and which pieces are damaged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>writes the content of a zip stream</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>writes what a damaged zip stream still holds; zeros where it is known how much is lost</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no zeros for what is lost</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>makes a zip stream of a file; in pieces, when workers or an engine are named</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the version of the content, 0 to 4294967295; 0 unless told</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lists the files of a tar.gz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>makes a tar.gz of files and directories; keeps an older one if files are missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>replaces an older archive also by one that misses files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unpacks a tar.gz, of at most 512 MiB unless told, and replaces no files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>replaces files that are there already</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>writes a file as Base64, in one line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>writes the bytes of Base64 with any line ends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>writes the CRC-16/XMODEM of each file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sorts lines in natural order: item9 before item10</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>names the next free file of a series, as img0007.tif</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>renders the library&apos;s change log as a page of HTML</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>what belongs together; context unless told</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>of the page; English unless told</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>writes an archive for support, with the N newest dumps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>how many dumps go along, 0 to 1000; they hold memory, with secrets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>replaces an older file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shows versions, directories and the machine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>explains the command</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no unit &quot;%1&quot;; kyr units lists them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; (%2) and &quot;%3&quot; (%4) are units of different kinds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has no unit &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 is too large a value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;kyr help COMMAND&quot; or &quot;kyr COMMAND --help&quot; explains one of them, &quot;kyr --version&quot; names the version.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FILE may be - for standard input, OUTPUT - for standard output. An option&apos;s value may stand behind = as well; behind -- nothing is an option. Units that are hard to type have other spellings: um for µm, degC for °C, mm2 for mm²; see kyr units KIND.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exit codes: 0 all is well, 1 a file is at fault, 2 wrong usage, 130 ended by the user.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kyr looks into files and converts values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; did you mean %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no such file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>standard input</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--language takes one of en, de, fr, jp, cn, pt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kyr_%1.qm: cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ended by the user before all was done</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a command is missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 needs one of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kyr COMMAND ...   (kyr --help explains)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not end in a number below 2^32</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no number is left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>standard output: no space left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>standard output: cannot be written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--engine is zlib or fastest, not &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2 sections, logs and dumps: %3, %4 bytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a report goes into a file, not to standard output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the report is not complete: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It names this machine, its user and what is set; secrets are blanked as far as their
names tell. Unpack it and look at index.html before you pass it on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: a line is too long</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no complete tar.gz, or larger than --limit allows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: not written, as nothing is left for it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: there is not enough memory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: stays as it was, as the new archive misses what is named above; --force replaces it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: is the input as well and would be lost; give the output another name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>standard output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: cannot be written to the end (is the disk full?)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no kind &quot;%1&quot;; kyr units lists them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source># other names that are understood</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source># %1: internal value = (value - OFFSET) * FACTOR</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>file version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>library version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>header size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>blocks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>compressed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>content</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ratio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pieces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>stream size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>state</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>behind the end</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of content saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>: all that was written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, which may be wrong: there is no index</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, all of them checked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; zeros in place of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lost: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lost: nobody knows how much behind byte %1 of the content (bytes %2 to %3 of the stream)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cut short at byte %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>damaged at byte %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not read to its end</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of content in %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; behind its end: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; readable before: %1, which may be wrong</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; checked: %1 in %2 of %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shows the header, the blocks and the pieces of a zip stream; of many pieces not all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>all pieces, also of many</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>this is %1 %2 as %3, %4 %2 as %5; choose one with --kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>index</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 with %2 of content in %3, %4 to %5 each</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>piece</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>at byte</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>packed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>content at</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 more; --all shows them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot be read: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot be read at byte %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An older OUTPUT is replaced as soon as the new one is whole. Where a command would keep what is there, --force replaces it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shows where the time of a program went that KYR_TRACE traced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: byte %2: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an event is longer than a MiB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>this is no trace, which begins with &quot;[&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an event begins with &quot;{&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the event has no &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source># times in milliseconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source># the trace has no end: its process died, or writes it still</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: files that are written: %2 of %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>names the functions and lines of a crash report, from the debug information of the build that crashed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>where debug information lies; may stand several times</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: the dump is cut short or damaged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: is the dump of an unknown kind of machine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: is too large for a report or a dump</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: is no folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (no build id: not checked)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no build id; there are the builds %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no build id</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 crashed, there is %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>symbols:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: holds no backtrace, and is no dump</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>neither llvm-symbolizer nor addr2line is installed, one of which reads debug information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2 cannot read it: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: its debug information cannot be read</source>
        <translation type="unfinished"></translation>
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
        <source>%1 block</source>
        <comment>%1 blocks</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 piece</source>
        <comment>%1 pieces</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 checked piece</source>
        <comment>%1 checked pieces</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
</TS>
