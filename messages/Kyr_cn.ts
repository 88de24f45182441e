<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>KyrApplication</name>
    <message>
        <source>Sheet Forming</source>
        <translation>板材成形</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>运动</translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation>检测</translation>
    </message>
    <message>
        <source>Viewer</source>
        <translation>查看器</translation>
    </message>
    <message>
        <source>Deformation</source>
        <translation>变形</translation>
    </message>
    <message>
        <source>Material Test</source>
        <translation>材料试验</translation>
    </message>
    <message>
        <source>Test Rig</source>
        <translation>试验台</translation>
    </message>
    <message>
        <source>Launcher</source>
        <translation>启动器</translation>
    </message>
    <message>
        <source>Computing Server</source>
        <translation>计算服务器</translation>
    </message>
    <message>
        <source>Sensor</source>
        <translation>传感器</translation>
    </message>
    <message>
        <source>Large Structure</source>
        <translation>大型结构</translation>
    </message>
    <message>
        <source>Production Cell</source>
        <translation>生产单元</translation>
    </message>
</context>
<context>
    <name>KyrChangeLog</name>
    <message>
        <source>new %1.</source>
        <translation>新增 %1。</translation>
    </message>
    <message>
        <source>%1 renamed to %2.</source>
        <translation>%1 更名为 %2。</translation>
    </message>
    <message>
        <source>removed %1.</source>
        <translation>删除 %1。</translation>
    </message>
    <message>
        <source>changed semantics of %1.</source>
        <translation>更改了 %1 的含义。</translation>
    </message>
</context>
<context>
    <name>KyrLibraryHistory</name>
    <message>
        <source>Reports a broken invariant and ends the process.</source>
        <translation>报告被破坏的不变量并结束进程。</translation>
    </message>
    <message>
        <source>Sorts item9 before item10.</source>
        <translation>将 item9 排在 item10 之前。</translation>
    </message>
    <message>
        <source>With its kin for other numbers, the same under every locale.</source>
        <translation>与处理其他数值的同类函数一样，在任何区域设置下结果都相同。</translation>
    </message>
    <message>
        <source>On Linux only.</source>
        <translation>仅限 Linux。</translation>
    </message>
    <message>
        <source>Finds the next free number of a series of files.</source>
        <translation>查找文件序列中下一个空闲编号。</translation>
    </message>
    <message>
        <source>Gives way when its owner no longer lives.</source>
        <translation>所有者不再存在时让出。</translation>
    </message>
    <message>
        <source>Hands an exception of its work to the thread that waits for it.</source>
        <translation>将工作中的异常交给等待它的线程。</translation>
    </message>
    <message>
        <source>Tells at which byte a file is damaged or cut short.</source>
        <translation>指出文件在哪个字节处损坏或被截断。</translation>
    </message>
    <message>
        <source>Bounded in memory by ZippedTarLimits.</source>
        <translation>内存占用受 ZippedTarLimits 限制。</translation>
    </message>
    <message>
        <source>libKyr %1: changes of the interface</source>
        <translation>libKyr %1：接口变更</translation>
    </message>
    <message>
        <source>Reads and writes quantities as people do.</source>
        <translation>按人们的书写习惯读写量值。</translation>
    </message>
</context>
<context>
    <name>Kyr_FileParse</name>
    <message>
        <source>column %1</source>
        <translation>第 %1 列</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>第 %1 行</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>第 %1 行，第 %2 列</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no pair %3=&quot;...&quot;</source>
        <translation>“%1”不是 %3=&quot;...&quot; 形式的配对</translation>
    </message>
    <message>
        <source>the line ends too early</source>
        <translation>该行过早结束</translation>
    </message>
    <message>
        <source>the line is too long</source>
        <translation>该行过长</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>文件在该行中间结束</translation>
    </message>
    <message>
        <source>the file ends</source>
        <translation>文件已结束</translation>
    </message>
    <message>
        <source>the file ends where &quot;%2&quot; is expected</source>
        <translation>文件在应有“%2”处结束</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands where &quot;%2&quot; is expected</source>
        <translation>应为“%2”处出现了“%1”</translation>
    </message>
    <message>
        <source>the file cannot be read to its end</source>
        <translation>无法将文件读到末尾</translation>
    </message>
    <message>
        <source>a value is missing</source>
        <translation>缺少一个值</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no integer</source>
        <translation>“%1”不是整数</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>“%1”不是数字</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not within %3</source>
        <translation>“%1”不在 %3 范围内</translation>
    </message>
</context>
<context>
    <name>Kyr_Quantity</name>
    <message>
        <source>A number is missing.</source>
        <translation>缺少数字。</translation>
    </message>
    <message>
        <source>No number begins here.</source>
        <translation>此处不是数字的开头。</translation>
    </message>
    <message>
        <source>A digit is missing.</source>
        <translation>缺少一位数字。</translation>
    </message>
    <message>
        <source>%1 may be %2 or %3: write %4 or %5.</source>
        <translation>%1 可以是 %2 或 %3：请写作 %4 或 %5。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; separates no groups of three digits here; the decimal separator is &quot;%2&quot;.</source>
        <translation>“%1”在此处不是三位分组的分隔符；小数点为“%2”。</translation>
    </message>
    <message>
        <source>A number has only one decimal separator.</source>
        <translation>一个数字只能有一个小数点。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no fraction.</source>
        <translation>“%1”不是分数。</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>数字过大。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no unit here; known are %2.</source>
        <translation>“%1”在此处不是单位；可用的单位有 %2。</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>缺少单位。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot follow here.</source>
        <translation>此处之后不能是“%1”。</translation>
    </message>
    <message>
        <source>The smallest value is %1.</source>
        <translation>最小值为 %1。</translation>
    </message>
    <message>
        <source>The largest value is %1.</source>
        <translation>最大值为 %1。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no kind, unit and decimals.</source>
        <translation>“%1”没有给出量的种类、单位和小数位数。</translation>
    </message>
    <message>
        <source>The number is too close to zero.</source>
        <translation>数字过于接近零。</translation>
    </message>
    <message>
        <source>Either all parts of a sum have a unit or none has.</source>
        <translation>和的各项要么都有单位，要么都没有。</translation>
    </message>
    <message>
        <source>Only one factor may have a unit.</source>
        <translation>只有一个因数可以有单位。</translation>
    </message>
    <message>
        <source>A divisor may not have a unit.</source>
        <translation>除数不能有单位。</translation>
    </message>
    <message>
        <source>Nothing can be divided by zero.</source>
        <translation>不能除以零。</translation>
    </message>
    <message>
        <source>A closing parenthesis is missing.</source>
        <translation>缺少右括号。</translation>
    </message>
    <message>
        <source>There are too many parentheses in each other.</source>
        <translation>括号嵌套过深。</translation>
    </message>
</context>
<context>
    <name>Kyr_Translator</name>
    <message>
        <source>language: english</source>
        <translation>英语</translation>
    </message>
    <message>
        <source>language: german</source>
        <translation>德语</translation>
    </message>
    <message>
        <source>language: french</source>
        <translation>法语</translation>
    </message>
    <message>
        <source>language: japanese</source>
        <translation>日语</translation>
    </message>
    <message>
        <source>language: chinese</source>
        <translation>中文</translation>
    </message>
    <message>
        <source>language: portuguese</source>
        <translation>葡萄牙语</translation>
    </message>
</context>
<context>
    <name>Kyr_crash</name>
    <message>
        <source>%1 has crashed. The report is %2, the dump is %3.</source>
        <translation>%1 已崩溃。报告位于 %2，内存转储位于 %3。</translation>
    </message>
    <message>
        <source>%1 has crashed. The report is %2; there is no dump.</source>
        <translation>%1 已崩溃。报告位于 %2；没有内存转储。</translation>
    </message>
</context>
<context>
    <name>Kyr_diagnostics</name>
    <message>
        <source>line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour: %2</source>
        <translation>“%1”不是颜色：%2</translation>
    </message>
    <message>
        <source>red, green, blue and alpha are numbers from 0 to 255, or together #rrggbbaa</source>
        <translation>红、绿、蓝和透明度是 0 到 255 的数字，或合写为 #rrggbbaa</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no font: %2</source>
        <translation>“%1”不是字体：%2</translation>
    </message>
    <message>
        <source>the size is a number of points from 0.1 to 10000</source>
        <translation>字号是 0.1 到 10000 之间的点数</translation>
    </message>
    <message>
        <source>the weight is a number from 1 to 1000, 400 is normal</source>
        <translation>字重是 1 到 1000 之间的数字，400 为正常</translation>
    </message>
    <message>
        <source>behind the weight come italic, underline, strikeout and fixed, each once</source>
        <translation>字重之后可以有 italic、underline、strikeout 和 fixed，每个最多一次</translation>
    </message>
    <message>
        <source>the family is one word, with \_ for each of its blanks</source>
        <translation>字体族名是一个单词，其中每个空格写作 \_</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no sound: %2</source>
        <translation>“%1”不是声音：%2</translation>
    </message>
    <message>
        <source>the volume is a number from 0 to 100</source>
        <translation>音量是 0 到 100 之间的数字</translation>
    </message>
    <message>
        <source>the repetitions are a number from 1 to 1000000, or 0 without an end</source>
        <translation>重复次数是 1 到 1000000 之间的数字，0 表示不停止</translation>
    </message>
    <message>
        <source>the file is one word, with \_ for each of its blanks</source>
        <translation>文件名是一个单词，其中每个空格写作 \_</translation>
    </message>
    <message>
        <source>nothing may follow the repetitions</source>
        <translation>重复次数之后不能再有其他内容</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>%1 exists already and is not replaced</source>
        <translation>%1 已存在，不会被替换</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>文件在该行中间结束</translation>
    </message>
</context>
<context>
    <name>Kyr_zip_err</name>
    <message>
        <source>invalid file version: %1. the file is newer than the actual program version: %2</source>
        <translation>文件版本无效：%1。该文件比当前程序版本更新：%2</translation>
    </message>
    <message>
        <source>unknown file version</source>
        <translation>未知的文件版本</translation>
    </message>
    <message>
        <source>cannot read zip stream header</source>
        <translation>无法读取 zip 流的文件头。</translation>
    </message>
    <message>
        <source>invalid zip stream header</source>
        <translation>zip 流的文件头无效。</translation>
    </message>
    <message>
        <source>invalid header: the file was transferred by ascii-ftp.
it must be transferred by binary-ftp.</source>
        <translation>文件头无效：该文件是以 FTP 的 ASCII 模式传输的。
必须以二进制模式传输。</translation>
    </message>
</context>
</TS>
