<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Kyr_tool</name>
    <message>
        <source>unknown option &quot;%1&quot;</source>
        <translation>未知的选项“%1”</translation>
    </message>
    <message>
        <source>an argument is missing</source>
        <translation>缺少一个参数</translation>
    </message>
    <message>
        <source>one argument too many: &quot;%1&quot;</source>
        <translation>多出一个参数：“%1”</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 不带值</translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation>%1 需要一个值</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 接受 %2 到 %3 之间的数字，而不是“%4”</translation>
    </message>
    <message>
        <source>%1: no Base64 at byte %2</source>
        <translation>%1：字节 %2 处不是 Base64</translation>
    </message>
    <message>
        <source>%1: ends within a group of four characters</source>
        <translation>%1：在四字符组的中间结束</translation>
    </message>
    <message>
        <source>--group takes one of %1</source>
        <translation>--group 取以下之一：%1</translation>
    </message>
    <message>
        <source>how many threads work, 1 to 64; 1 unless told</source>
        <translation>工作线程数，1 到 64；默认为 1</translation>
    </message>
    <message>
        <source>what compresses; zlib unless told</source>
        <translation>压缩引擎；默认为 zlib</translation>
    </message>
    <message>
        <source>how much may come out of the archive, in MiB; 512 unless told</source>
        <translation>最多可从归档中取出多少，以 MiB 为单位；默认为 512</translation>
    </message>
    <message>
        <source>writes JSON, for programs</source>
        <translation>输出 JSON，供程序使用</translation>
    </message>
    <message>
        <source>converts a value, as in: kyr convert 25.4 mm in, kyr convert 25.4mm inch</source>
        <translation>换算数值，例如：kyr convert 25.4 mm in、kyr convert 25.4mm inch</translation>
    </message>
    <message>
        <source>the kind of both units, as LENGTH</source>
        <translation>两个单位的量的种类，如 LENGTH</translation>
    </message>
    <message>
        <source>decimals of the result, 0 to 60</source>
        <translation>结果的小数位数，0 到 60</translation>
    </message>
    <message>
        <source>pixels of an inch, for figures</source>
        <translation>每英寸像素数，用于图形</translation>
    </message>
    <message>
        <source>lists the kinds of quantities, or the units of one</source>
        <translation>列出量的种类，或其中一种的单位</translation>
    </message>
    <message>
        <source>says whether a zip stream is complete, and which pieces are damaged</source>
        <translation>说明 zip 流是否完整，以及哪些分段已损坏</translation>
    </message>
    <message>
        <source>writes the content of a zip stream</source>
        <translation>输出 zip 流的内容</translation>
    </message>
    <message>
        <source>writes what a damaged zip stream still holds; zeros where it is known how much is lost</source>
        <translation>输出损坏的 zip 流中尚存的内容；已知丢失多少时以零填补</translation>
    </message>
    <message>
        <source>no zeros for what is lost</source>
        <translation>不以零填补丢失的部分</translation>
    </message>
    <message>
        <source>makes a zip stream of a file; in pieces, when workers or an engine are named</source>
        <translation>将文件制成 zip 流；指定 --workers 或 --engine 时分段制作</translation>
    </message>
    <message>
        <source>the version of the content, 0 to 4294967295; 0 unless told</source>
        <translation>内容的版本，0 到 4294967295；默认为 0</translation>
    </message>
    <message>
        <source>lists the files of a tar.gz</source>
        <translation>列出 tar.gz 中的文件</translation>
    </message>
    <message>
        <source>makes a tar.gz of files and directories; keeps an older one if files are missing</source>
        <translation>将文件和目录制成 tar.gz；缺少文件时保留旧的归档</translation>
    </message>
    <message>
        <source>replaces an older archive also by one that misses files</source>
        <translation>即使缺少文件，也替换旧的归档</translation>
    </message>
    <message>
        <source>unpacks a tar.gz, of at most 512 MiB unless told, and replaces no files</source>
        <translation>解开 tar.gz，默认最多 512 MiB，不替换已有文件</translation>
    </message>
    <message>
        <source>replaces files that are there already</source>
        <translation>替换已有的文件</translation>
    </message>
    <message>
        <source>writes a file as Base64, in one line</source>
        <translation>将文件以 Base64 输出为一行</translation>
    </message>
    <message>
        <source>writes the bytes of Base64 with any line ends</source>
        <translation>输出 Base64 所表示的字节，换行方式不限</translation>
    </message>
    <message>
        <source>writes the CRC-16/XMODEM of each file</source>
        <translation>输出每个文件的 CRC-16/XMODEM</translation>
    </message>
    <message>
        <source>sorts lines in natural order: item9 before item10</source>
        <translation>按自然顺序排列各行：item9 在 item10 之前</translation>
    </message>
    <message>
        <source>names the next free file of a series, as img0007.tif</source>
        <translation>给出序列中下一个空闲的文件名，如 img0007.tif</translation>
    </message>
    <message>
        <source>renders the library&apos;s change log as a page of HTML</source>
        <translation>将库的变更记录输出为 HTML 页面</translation>
    </message>
    <message>
        <source>what belongs together; context unless told</source>
        <translation>按什么归类；默认为 context</translation>
    </message>
    <message>
        <source>of the page; English unless told</source>
        <translation>页面的语言；默认为英语</translation>
    </message>
    <message>
        <source>writes an archive for support, with the N newest dumps</source>
        <translation>写出供技术支持使用的归档，包含最新的 N 个内存转储</translation>
    </message>
    <message>
        <source>how many dumps go along, 0 to 1000; they hold memory, with secrets</source>
        <translation>附带多少个内存转储，0 到 1000；其中有内存内容，包括机密</translation>
    </message>
    <message>
        <source>replaces an older file</source>
        <translation>替换旧文件</translation>
    </message>
    <message>
        <source>shows versions, directories and the machine</source>
        <translation>显示版本、目录和计算机信息</translation>
    </message>
    <message>
        <source>explains the command</source>
        <translation>说明命令</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>“%1”不是数字</translation>
    </message>
    <message>
        <source>there is no unit &quot;%1&quot;; kyr units lists them</source>
        <translation>没有单位“%1”；kyr units 可列出所有单位</translation>
    </message>
    <message>
        <source>&quot;%1&quot; (%2) and &quot;%3&quot; (%4) are units of different kinds</source>
        <translation>“%1”(%2) 和“%3”(%4) 是不同种类的量的单位</translation>
    </message>
    <message>
        <source>%1 has no unit &quot;%2&quot;</source>
        <translation>%1 没有单位“%2”</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>缺少单位。</translation>
    </message>
    <message>
        <source>%1 %2 is too large a value</source>
        <translation>%1 %2 的值过大</translation>
    </message>
    <message>
        <source>&quot;kyr help COMMAND&quot; or &quot;kyr COMMAND --help&quot; explains one of them, &quot;kyr --version&quot; names the version.</source>
        <translation>“kyr help 命令”或“kyr 命令 --help”说明其中一个命令，“kyr --version”给出版本。</translation>
    </message>
    <message>
        <source>FILE may be - for standard input, OUTPUT - for standard output. An option&apos;s value may stand behind = as well; behind -- nothing is an option. Units that are hard to type have other spellings: um for µm, degC for °C, mm2 for mm²; see kyr units KIND.</source>
        <translation>FILE 可用 - 表示标准输入，OUTPUT 可用 - 表示标准输出。选项的值也可以写在 = 之后；-- 之后的都不是选项。不便输入的单位有其他写法：um 表示 µm，degC 表示 °C，mm2 表示 mm²；参见 kyr units KIND。</translation>
    </message>
    <message>
        <source>Exit codes: 0 all is well, 1 a file is at fault, 2 wrong usage, 130 ended by the user.</source>
        <translation>退出代码：0 一切正常，1 文件有问题，2 用法错误，130 被用户中止。</translation>
    </message>
    <message>
        <source>kyr looks into files and converts values.</source>
        <translation>kyr 查看文件内容并换算数值。</translation>
    </message>
    <message>
        <source>; did you mean %1?</source>
        <translation>；是否想输入 %1？</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>是目录</translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>无法打开</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>没有该文件</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>标准输入</translation>
    </message>
    <message>
        <source>%1: cannot be read</source>
        <translation>%1：无法读取</translation>
    </message>
    <message>
        <source>--language takes one of en, de, fr, jp, cn, pt</source>
        <translation>--language 取以下之一：en、de、fr、jp、cn、pt</translation>
    </message>
    <message>
        <source>Kyr_%1.qm: cannot be read</source>
        <translation>Kyr_%1.qm：无法读取</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>用法：%1</translation>
    </message>
    <message>
        <source>ended by the user before all was done</source>
        <translation>在全部完成之前被用户中止</translation>
    </message>
    <message>
        <source>a command is missing</source>
        <translation>缺少命令</translation>
    </message>
    <message>
        <source>%1 needs one of %2</source>
        <translation>%1 需要以下之一：%2</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;</source>
        <translation>未知的命令“%1”</translation>
    </message>
    <message>
        <source>kyr COMMAND ...   (kyr --help explains)</source>
        <translation>kyr 命令 ...   (kyr --help 给出说明)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not end in a number below 2^32</source>
        <translation>“%1”不以小于 2^32 的数字结尾</translation>
    </message>
    <message>
        <source>%1: no number is left</source>
        <translation>%1：已没有空闲编号</translation>
    </message>
    <message>
        <source>standard output: no space left</source>
        <translation>标准输出：空间不足</translation>
    </message>
    <message>
        <source>standard output: cannot be written</source>
        <translation>标准输出：无法写入</translation>
    </message>
    <message>
        <source>--engine is zlib or fastest, not &quot;%1&quot;</source>
        <translation>--engine 是 zlib 或 fastest，而不是“%1”</translation>
    </message>
    <message>
        <source>%1: %2 sections, logs and dumps: %3, %4 bytes</source>
        <translation>%1：%2 节，日志和内存转储：%3，%4 字节</translation>
    </message>
    <message>
        <source>a report goes into a file, not to standard output</source>
        <translation>报告写入文件，不写到标准输出</translation>
    </message>
    <message>
        <source>the report is not complete: %1</source>
        <translation>报告不完整：%1</translation>
    </message>
    <message>
        <source>It names this machine, its user and what is set; secrets are blanked as far as their
names tell. Unpack it and look at index.html before you pass it on.</source>
        <translation>其中有本机、用户和各项设置的信息；凡名称看得出是机密的
都已抹去。转交之前请解开并查看 index.html。</translation>
    </message>
    <message>
        <source>%1: a line is too long</source>
        <translation>%1：有一行过长</translation>
    </message>
    <message>
        <source>%1: no complete tar.gz, or larger than --limit allows</source>
        <translation>%1：不是完整的 tar.gz，或超出 --limit 允许的大小</translation>
    </message>
    <message>
        <source>%1: not written, as nothing is left for it</source>
        <translation>%1：未写出，因为没有可放入的内容</translation>
    </message>
    <message>
        <source>%1: there is not enough memory</source>
        <translation>%1：内存不足</translation>
    </message>
    <message>
        <source>%1: stays as it was, as the new archive misses what is named above; --force replaces it</source>
        <translation>%1：保持原样，因为新归档缺少上面列出的内容；--force 可强制替换</translation>
    </message>
    <message>
        <source>%1: is the input as well and would be lost; give the output another name</source>
        <translation>%1：同时也是输入，会因此丢失；请为输出另取名称</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>标准输出</translation>
    </message>
    <message>
        <source>%1: cannot be written to the end (is the disk full?)</source>
        <translation>%1：无法写到末尾（磁盘已满？）</translation>
    </message>
    <message>
        <source>there is no kind &quot;%1&quot;; kyr units lists them</source>
        <translation>没有量的种类“%1”；kyr units 可列出所有种类</translation>
    </message>
    <message>
        <source># other names that are understood</source>
        <translation># 其他可识别的名称</translation>
    </message>
    <message>
        <source># %1: internal value = (value - OFFSET) * FACTOR</source>
        <translation># %1：内部值 = (值 - OFFSET) * FACTOR</translation>
    </message>
    <message>
        <source>file version</source>
        <translation>文件版本</translation>
    </message>
    <message>
        <source>library version</source>
        <translation>库版本</translation>
    </message>
    <message>
        <source>written</source>
        <translation>写入时间</translation>
    </message>
    <message>
        <source>header size</source>
        <translation>文件头大小</translation>
    </message>
    <message>
        <source>blocks</source>
        <translation>数据块</translation>
    </message>
    <message>
        <source>compressed</source>
        <translation>压缩后</translation>
    </message>
    <message>
        <source>content</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>ratio</source>
        <translation>压缩率</translation>
    </message>
    <message>
        <source>pieces</source>
        <translation>分段</translation>
    </message>
    <message>
        <source>stream size</source>
        <translation>流的大小</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>state</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>behind the end</source>
        <translation>末尾之后</translation>
    </message>
    <message>
        <source>%1 of content saved</source>
        <translation>已挽救内容 %1</translation>
    </message>
    <message>
        <source>: all that was written</source>
        <translation>：写入的全部内容</translation>
    </message>
    <message>
        <source>, which may be wrong: there is no index</source>
        <translation>，可能有误：没有索引</translation>
    </message>
    <message>
        <source>, all of them checked</source>
        <translation>，全部已检查</translation>
    </message>
    <message>
        <source>; zeros in place of %1</source>
        <translation>；以零代替 %1</translation>
    </message>
    <message>
        <source>lost: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>丢失：内容的字节 %1 到 %2（流的字节 %3 到 %4）</translation>
    </message>
    <message>
        <source>lost: nobody knows how much behind byte %1 of the content (bytes %2 to %3 of the stream)</source>
        <translation>丢失：内容的字节 %1 之后，数量不明（流的字节 %2 到 %3）</translation>
    </message>
    <message>
        <source>complete</source>
        <translation>完整</translation>
    </message>
    <message>
        <source>cut short at byte %1</source>
        <translation>在字节 %1 处截断</translation>
    </message>
    <message>
        <source>damaged at byte %1</source>
        <translation>在字节 %1 处损坏</translation>
    </message>
    <message>
        <source>not read to its end</source>
        <translation>未读到末尾</translation>
    </message>
    <message>
        <source>%1 of content in %2</source>
        <translation>内容 %1，分为 %2</translation>
    </message>
    <message>
        <source>; behind its end: %1</source>
        <translation>；末尾之后：%1</translation>
    </message>
    <message>
        <source>; readable before: %1, which may be wrong</source>
        <translation>；此前可读：%1，可能有误</translation>
    </message>
    <message>
        <source>; checked: %1 in %2 of %3</source>
        <translation>；已检查：%1（%3中的 %2 个）</translation>
    </message>
    <message>
        <source>shows the header, the blocks and the pieces of a zip stream; of many pieces not all</source>
        <translation>显示 zip 流的文件头、数据块和分段；分段很多时不全部显示</translation>
    </message>
    <message>
        <source>all pieces, also of many</source>
        <translation>显示所有分段，即使很多</translation>
    </message>
    <message>
        <source>this is %1 %2 as %3, %4 %2 as %5; choose one with --kind</source>
        <translation>作为 %3 是 %1 %2，作为 %5 是 %4 %2；请用 --kind 选择</translation>
    </message>
    <message>
        <source>index</source>
        <translation>索引</translation>
    </message>
    <message>
        <source>%1 with %2 of content in %3, %4 to %5 each</source>
        <translation>%1：内容 %2，压缩后 %3，每个 %4 到 %5</translation>
    </message>
    <message>
        <source>piece</source>
        <translation>分段</translation>
    </message>
    <message>
        <source>at byte</source>
        <translation>位于字节</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>压缩后</translation>
    </message>
    <message>
        <source>content at</source>
        <translation>内容位于</translation>
    </message>
    <message>
        <source>%1 more; --all shows them</source>
        <translation>另有 %1 个；--all 可全部显示</translation>
    </message>
    <message>
        <source>cannot be read: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>无法读取：内容的字节 %1 到 %2（流的字节 %3 到 %4）</translation>
    </message>
    <message>
        <source>cannot be read at byte %1</source>
        <translation>在字节 %1 处无法读取</translation>
    </message>
    <message>
        <source>An older OUTPUT is replaced as soon as the new one is whole. Where a command would keep what is there, --force replaces it.</source>
        <translation>新的 OUTPUT 完整之后才替换旧的。命令会保留已有内容时，--force 可强制替换。</translation>
    </message>
    <message>
        <source>shows where the time of a program went that KYR_TRACE traced</source>
        <translation>显示由 KYR_TRACE 跟踪的程序把时间用在了哪里</translation>
    </message>
    <message>
        <source>%1: byte %2: %3</source>
        <translation>%1：字节 %2：%3</translation>
    </message>
    <message>
        <source>an event is longer than a MiB</source>
        <translation>有一个事件超过 1 MiB</translation>
    </message>
    <message>
        <source>this is no trace, which begins with &quot;[&quot;</source>
        <translation>这不是跟踪记录；跟踪记录以“[”开头</translation>
    </message>
    <message>
        <source>an event begins with &quot;{&quot;</source>
        <translation>事件以“{”开头</translation>
    </message>
    <message>
        <source>the event has no &quot;%1&quot;</source>
        <translation>该事件没有“%1”</translation>
    </message>
    <message>
        <source># times in milliseconds</source>
        <translation># 时间以毫秒为单位</translation>
    </message>
    <message>
        <source># the trace has no end: its process died, or writes it still</source>
        <translation># 跟踪记录没有结尾：其进程已意外终止，或仍在写入</translation>
    </message>
    <message>
        <source>%1: files that are written: %2 of %3</source>
        <translation>%1：已写出的文件：%2 / %3</translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>%1 bytes</comment>
        <translation>
            <numerusform>%1 字节</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 block</source>
        <comment>%1 blocks</comment>
        <translation>
            <numerusform>%1 个数据块</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 piece</source>
        <comment>%1 pieces</comment>
        <translation>
            <numerusform>%1 个分段</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 checked piece</source>
        <comment>%1 checked pieces</comment>
        <translation>
            <numerusform>%1 个已检查的分段</numerusform>
        </translation>
    </message>
    <message>
        <source>names the functions and lines of a crash report, from the debug information of the build that crashed</source>
        <translation>根据崩溃程序所属构建的调试信息，给出崩溃报告中的函数和行</translation>
    </message>
    <message>
        <source>where debug information lies; may stand several times</source>
        <translation>调试信息的位置；可多次给出</translation>
    </message>
    <message>
        <source>%1: the dump is cut short or damaged</source>
        <translation>%1：内存转储被截断或已损坏</translation>
    </message>
    <message>
        <source>%1: is the dump of an unknown kind of machine</source>
        <translation>%1：是未知种类计算机的内存转储</translation>
    </message>
    <message>
        <source>%1: is too large for a report or a dump</source>
        <translation>%1：作为报告或内存转储过大</translation>
    </message>
    <message>
        <source>%1: is no folder</source>
        <translation>%1：不是文件夹</translation>
    </message>
    <message>
        <source>%1 (no build id: not checked)</source>
        <translation>%1（没有构建 ID：未检查）</translation>
    </message>
    <message>
        <source>no build id; there are the builds %1</source>
        <translation>没有构建 ID；现有构建 %1</translation>
    </message>
    <message>
        <source>no build id</source>
        <translation>没有构建 ID</translation>
    </message>
    <message>
        <source>%1 crashed, there is %2</source>
        <translation>崩溃的是 %1，现有的是 %2</translation>
    </message>
    <message>
        <source>symbols:</source>
        <translation>调试信息：</translation>
    </message>
    <message>
        <source>%1: holds no backtrace, and is no dump</source>
        <translation>%1：没有调用栈，也不是内存转储</translation>
    </message>
    <message>
        <source>neither llvm-symbolizer nor addr2line is installed, one of which reads debug information</source>
        <translation>未安装可读取调试信息的 llvm-symbolizer 或 addr2line</translation>
    </message>
    <message>
        <source>%1: %2 cannot read it: %3</source>
        <translation>%1：%2 无法读取：%3</translation>
    </message>
    <message>
        <source>%1: its debug information cannot be read</source>
        <translation>%1：无法读取其调试信息</translation>
    </message>
</context>
</TS>
