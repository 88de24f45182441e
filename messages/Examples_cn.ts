<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Gauge</name>
    <message>
        <source>Gauge</source>
        <translation>量值显示</translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation>长度(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Temperature</source>
        <translation>温度(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Angle</source>
        <translation>角度(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>单位(&amp;U)</translation>
    </message>
    <message>
        <source>Any unit may follow the number.</source>
        <translation>数字后面可以跟任何单位。</translation>
    </message>
    <message>
        <source>Try gauge --help.</source>
        <translation>请试试 gauge --help。</translation>
    </message>
    <message>
        <source>there is no gauge for %1</source>
        <translation>没有用于 %1 的量值显示</translation>
    </message>
    <message>
        <source>Shows a quantity that is typed as people write it.</source>
        <translation>显示按人们书写习惯输入的量。</translation>
    </message>
    <message>
        <source>quantity</source>
        <translation>量</translation>
    </message>
    <message>
        <source>what the field holds at first</source>
        <translation>输入框最初的内容</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>显示此帮助</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>in which the quantity is shown</source>
        <translation>显示该量所用的单位</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>单位</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>写出窗口图像后结束</translation>
    </message>
    <message>
        <source>give one quantity, in quotes</source>
        <translation>请给出一个量，并加引号</translation>
    </message>
    <message>
        <source>the gauge has no unit %1</source>
        <translation>量值显示没有单位 %1</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>没有可显示窗口的屏幕；使用 --screenshot 则不需要</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>无法写入 %1</translation>
    </message>
</context>
<context>
    <name>Surface</name>
    <message>
        <source>stopped by the user</source>
        <translation>被用户中止</translation>
    </message>
    <message>
        <source>Computing curvatures</source>
        <translation>正在计算曲率</translation>
    </message>
    <message>
        <source>Sorting the corners of triangles</source>
        <translation>正在排序三角形的顶点</translation>
    </message>
    <message>
        <source>Finding neighbours and normals</source>
        <translation>正在确定相邻点和法线</translation>
    </message>
    <message>
        <source>Smoothing normals</source>
        <translation>正在平滑法线</translation>
    </message>
    <message>
        <source>%1 copies of %2 are too many points</source>
        <translation>%2的 %1 份副本使点数过多</translation>
    </message>
    <message>
        <source>reading stopped early</source>
        <translation>读取提前停止</translation>
    </message>
    <message>
        <source>the content is no surface of this program</source>
        <translation>内容不是本程序的表面数据</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>无法写入 %1</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 中没有表面</translation>
    </message>
    <message>
        <source>lines with unknown keys, all told: %1</source>
        <translation>含未知关键字的行，共计：%1</translation>
    </message>
    <message>
        <source>unknown key, line skipped: %1</source>
        <translation>未知关键字，已跳过该行：%1</translation>
    </message>
    <message>
        <source>in less than 2 ms</source>
        <translation>用时不到 2 ms</translation>
    </message>
    <message>
        <source>at %1 MB/s</source>
        <translation>%1 MB/s</translation>
    </message>
    <message>
        <source>the system starts no threads for the analysis</source>
        <translation>系统无法为分析启动线程</translation>
    </message>
    <message>
        <source>a coordinate must be finite</source>
        <translation>坐标必须是有限值</translation>
    </message>
    <message>
        <source>there is no such point</source>
        <translation>没有这个点</translation>
    </message>
    <message>
        <source>missing are %1 and %2</source>
        <translation>缺少 %1和 %2</translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged: %1 of its %2 bytes of content is lost; the others were checked and are good</source>
        <comment>the file is damaged: %1 of its %2 bytes of content are lost; the others were checked and are good</comment>
        <translation>
            <numerusform>文件已损坏：其内容 %2 字节中丢失了 %1 字节；其余已检查，完好</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged, as byte %1 shows; what was read before (%2 byte) may be wrong</source>
        <comment>the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong</comment>
        <translation>
            <numerusform>文件已损坏，在字节 %1 处发现；此前读取的内容（%2 字节）可能有误</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file ends too early, at byte %1; the first %2 byte of content is good</source>
        <comment>the file ends too early, at byte %1; the first %2 bytes of content are good</comment>
        <translation>
            <numerusform>文件过早结束于字节 %1；内容的前 %2 字节完好</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>%1 bytes</comment>
        <translation>
            <numerusform>%1 字节</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 line</source>
        <comment>%1 lines</comment>
        <translation>
            <numerusform>%1 行</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 data line</source>
        <comment>%1 data lines</comment>
        <translation>
            <numerusform>%1 行数据</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 open edge</source>
        <comment>%1 open edges</comment>
        <translation>
            <numerusform>%1 条开放边</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 point</source>
        <comment>%1 points</comment>
        <translation>
            <numerusform>%1 个点</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 triangle</source>
        <comment>%1 triangles</comment>
        <translation>
            <numerusform>%1 个三角形</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 worker</source>
        <comment>%1 workers</comment>
        <translation>
            <numerusform>%1 个线程</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Tour</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>harmless here: the content is the same</source>
        <translation>在此无害：内容相同</translation>
    </message>
    <message>
        <source>TAKEN FOR GOOD DATA</source>
        <translation>被当作完好的数据</translation>
    </message>
    <message>
        <source>cut short</source>
        <translation>被截断</translation>
    </message>
    <message>
        <source>one bit flipped</source>
        <translation>翻转一位</translation>
    </message>
    <message>
        <source>sent as text</source>
        <translation>以文本方式传输</translation>
    </message>
    <message>
        <source>newer program</source>
        <translation>更新的程序</translation>
    </message>
    <message>
        <source>Read the scan</source>
        <translation>读取扫描</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>holds</source>
        <translation>包含</translation>
    </message>
    <message>
        <source>text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>%1, %2, read %3</source>
        <translation>%1，%2，读取 %3</translation>
    </message>
    <message>
        <source>read %1, %2 of them without geometry</source>
        <translation>已读取 %1，其中 %2 行没有几何数据</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 中没有表面</translation>
    </message>
    <message>
        <source>repeated</source>
        <translation>重复</translation>
    </message>
    <message>
        <source>%1 times, side by side: %2</source>
        <translation>并排 %1 次：%2</translation>
    </message>
    <message>
        <source>Measure it (one unit of the file is 1 %1)</source>
        <translation>测量（文件的一个单位为 1 %1）</translation>
    </message>
    <message>
        <source>%1 is too large to be measured</source>
        <translation>%1 过大，无法测量</translation>
    </message>
    <message>
        <source>width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>depth</source>
        <translation>深度</translation>
    </message>
    <message>
        <source>surface</source>
        <translation>表面</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>体积</translation>
    </message>
    <message>
        <source>the surface has %1; its volume is closed over the middle</source>
        <translation>表面有 %1；其体积经由中心封闭</translation>
    </message>
    <message>
        <source>jobs</source>
        <translation>任务</translation>
    </message>
    <message>
        <source>time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>%1 s of computing in %2 s: %3 processors busy</source>
        <translation>%2 s 内计算 %1 s：%3 个处理器忙碌</translation>
    </message>
    <message>
        <source>mean curvature</source>
        <translation>平均曲率</translation>
    </message>
    <message>
        <source>lowest</source>
        <translation>最小</translation>
    </message>
    <message>
        <source>5% lie below</source>
        <translation>5% 低于此值</translation>
    </message>
    <message>
        <source>median</source>
        <translation>中位数</translation>
    </message>
    <message>
        <source>5% lie above</source>
        <translation>5% 高于此值</translation>
    </message>
    <message>
        <source>highest</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>Analyse it on %1</source>
        <translation>用 %1分析</translation>
    </message>
    <message>
        <source>curvatures</source>
        <translation>曲率</translation>
    </message>
    <message>
        <source>%1 without a curvature: no triangle of any area</source>
        <translation>%1没有曲率：没有面积不为零的三角形</translation>
    </message>
    <message>
        <source>Keep it in a project file</source>
        <translation>保存到项目文件</translation>
    </message>
    <message>
        <source>wrote %1</source>
        <translation>已写入 %1</translation>
    </message>
    <message>
        <source>time of writing</source>
        <translation>写入时间</translation>
    </message>
    <message>
        <source>content</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>压缩后</translation>
    </message>
    <message>
        <source>%1, %2% of the content</source>
        <translation>%1，为内容的 %2%</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>written %1, read %2</source>
        <translation>写入 %1，读取 %2</translation>
    </message>
    <message>
        <source>compared</source>
        <translation>比较</translation>
    </message>
    <message>
        <source>all %1 equal</source>
        <translation>%1，全部相同</translation>
    </message>
    <message>
        <source>DIFFERENT: %1</source>
        <translation>不同：%1</translation>
    </message>
    <message>
        <source>libKyr %1: a scan from text to a project file and back</source>
        <translation>libKyr %1：扫描从文本到项目文件再返回</translation>
    </message>
    <message>
        <source>What damage looks like (on copies)</source>
        <translation>损坏的表现（在副本上）</translation>
    </message>
    <message>
        <source>no damaged copy was taken for good data</source>
        <translation>没有损坏的副本被当作完好的数据</translation>
    </message>
    <message>
        <source>A DAMAGED COPY WAS TAKEN FOR GOOD</source>
        <translation>有损坏的副本被当作完好</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Everything held.</source>
        <translation>一切正常。</translation>
    </message>
    <message>
        <source>SOMETHING DID NOT HOLD.</source>
        <translation>有问题出现。</translation>
    </message>
    <message>
        <source>cannot write to standard output</source>
        <translation>无法写到标准输出</translation>
    </message>
    <message>
        <source>%1; nothing is half written</source>
        <translation>%1；没有写到一半的文件</translation>
    </message>
    <message>
        <source>out of memory (%1)</source>
        <translation>内存耗尽 (%1)</translation>
    </message>
    <message>
        <source>working</source>
        <translation>进行中</translation>
    </message>
    <message>
        <source>the system starts no thread for the analysis</source>
        <translation>系统无法为分析启动线程</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>无法写入 %1</translation>
    </message>
    <message>
        <source>cannot pack %1</source>
        <translation>无法打包 %1</translation>
    </message>
    <message>
        <source>cannot make a folder in %1 for temporary files</source>
        <translation>无法在 %1 中创建临时文件夹</translation>
    </message>
    <message>
        <source>Pack it all</source>
        <translation>全部打包</translation>
    </message>
    <message>
        <source>Try tour --help.</source>
        <translation>请试试 tour --help。</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3</source>
        <translation>--%1 接受 %2 到 %3 之间的数字</translation>
    </message>
    <message>
        <source>the project file would replace %1</source>
        <translation>项目文件会替换 %1</translation>
    </message>
    <message>
        <source>the archive would replace %1</source>
        <translation>归档会替换 %1</translation>
    </message>
    <message>
        <source>Reads a scan, measures it, keeps it in a project file and packs it all.</source>
        <translation>读取扫描，进行测量，保存到项目文件并全部打包。</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>显示此帮助</translation>
    </message>
    <message>
        <source>scan</source>
        <translation>扫描</translation>
    </message>
    <message>
        <source>an OBJ file</source>
        <translation>一个 OBJ 文件</translation>
    </message>
    <message>
        <source>what one unit of the file is; default mm</source>
        <translation>文件的一个单位表示多少；默认为 mm</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>单位</translation>
    </message>
    <message>
        <source>where the project file goes; default here</source>
        <translation>项目文件的存放位置；默认为当前目录</translation>
    </message>
    <message>
        <source>directory</source>
        <translation>目录</translation>
    </message>
    <message>
        <source>where it is all packed as a tar.gz; default beside the project file</source>
        <translation>全部打包成的 tar.gz 的存放位置；默认与项目文件同处</translation>
    </message>
    <message>
        <source>how often the scan is repeated, side by side; default 1</source>
        <translation>扫描并排重复的次数；默认为 1</translation>
    </message>
    <message>
        <source>number</source>
        <translation>数量</translation>
    </message>
    <message>
        <source>threads that analyse it; default one per processor</source>
        <translation>用于分析的线程数；默认每个处理器一个</translation>
    </message>
    <message>
        <source>how often normals are smoothed; default 2</source>
        <translation>平滑法线的次数；默认为 2</translation>
    </message>
    <message>
        <source>give one OBJ file</source>
        <translation>请给出一个 OBJ 文件</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>没有名为 %1 的长度单位</translation>
    </message>
    <message>
        <source>saved of it</source>
        <translation>从中挽救</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, equal to what was written</source>
        <comment>%1 of %2 pieces, equal to what was written</comment>
        <translation>
            <numerusform>%2 个分段中的 %1 个，与写入的相同</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, NOT WHAT WAS WRITTEN</source>
        <comment>%1 of %2 pieces, NOT WHAT WAS WRITTEN</comment>
        <translation>
            <numerusform>%2 个分段中的 %1 个，与写入的不同</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>Legend of the colours</source>
        <translation>颜色图例</translation>
    </message>
    <message>
        <source>Mean curvature, %1: %2</source>
        <translation>平均曲率，%1：%2</translation>
    </message>
    <message>
        <source>Curvature</source>
        <translation>曲率</translation>
    </message>
    <message>
        <source>Mean curvature</source>
        <translation>平均曲率</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>单位 %1</translation>
    </message>
    <message>
        <source>ridges</source>
        <translation>凸起</translation>
    </message>
    <message>
        <source>hollows</source>
        <translation>凹陷</translation>
    </message>
    <message>
        <source>Try viewer --help.</source>
        <translation>请试试 viewer --help。</translation>
    </message>
    <message>
        <source>no size: %1; it should look like 1280x800</source>
        <translation>不是尺寸：%1；应写作 1280x800 的形式</translation>
    </message>
    <message>
        <source>Shows a scan, coloured by its curvature.</source>
        <translation>显示按曲率着色的扫描。</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>显示此帮助</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>an OBJ file or a project (.kyr)</source>
        <translation>OBJ 文件或项目 (.kyr)</translation>
    </message>
    <message>
        <source>what one unit of an OBJ file is; default mm</source>
        <translation>OBJ 文件的一个单位表示多少；默认为 mm</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>单位</translation>
    </message>
    <message>
        <source>how often the scan is shown, side by side; default 1</source>
        <translation>扫描并排显示的次数；默认为 1</translation>
    </message>
    <message>
        <source>number</source>
        <translation>数量</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>写出窗口图像后结束</translation>
    </message>
    <message>
        <source>of the window; default 1280x800</source>
        <translation>窗口的尺寸；默认为 1280x800</translation>
    </message>
    <message>
        <source>size</source>
        <translation>尺寸</translation>
    </message>
    <message>
        <source>give one file</source>
        <translation>请给出一个文件</translation>
    </message>
    <message>
        <source>no number of copies: %1</source>
        <translation>不是副本数量：%1</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>没有名为 %1 的长度单位</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>无法写入 %1</translation>
    </message>
    <message>
        <source>a screenshot needs a file</source>
        <translation>屏幕截图需要一个文件</translation>
    </message>
    <message>
        <source>Scan viewer</source>
        <translation>扫描查看器</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>打开(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Save picture…</source>
        <translation>保存图像(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>适合窗口(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Oblique</source>
        <translation>斜视(&amp;O)</translation>
    </message>
    <message>
        <source>F&amp;ront</source>
        <translation>前(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>后(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Left</source>
        <translation>左(&amp;L)</translation>
    </message>
    <message>
        <source>Ri&amp;ght</source>
        <translation>右(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Top</source>
        <translation>上(&amp;T)</translation>
    </message>
    <message>
        <source>Botto&amp;m</source>
        <translation>下(&amp;M)</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>适合窗口</translation>
    </message>
    <message>
        <source>Show all of the scan (F)</source>
        <translation>显示整个扫描 (F)</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>Back to the first view (Home)</source>
        <translation>返回初始视图 (Home)</translation>
    </message>
    <message>
        <source>Drop a scan here</source>
        <translation>将扫描拖放到此处</translation>
    </message>
    <message>
        <source>an OBJ file, or a project (.kyr)</source>
        <translation>OBJ 文件或项目 (.kyr)</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>打开…</translation>
    </message>
    <message>
        <source>Open a scan</source>
        <translation>打开扫描</translation>
    </message>
    <message>
        <source>Scans and projects</source>
        <translation>扫描和项目</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有文件</translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation>保存图像</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>无法写入 %1。</translation>
    </message>
    <message>
        <source>%1 was not opened: %2</source>
        <translation>未能打开 %1：%2</translation>
    </message>
    <message>
        <source>Opening %1 was aborted.</source>
        <translation>已中止打开 %1。</translation>
    </message>
    <message>
        <source>%1 – Scan viewer</source>
        <translation>%1 – 扫描查看器</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>Put the message away</source>
        <translation>关闭消息</translation>
    </message>
    <message>
        <source>Project, %1</source>
        <translation>项目，%1</translation>
    </message>
    <message>
        <source>Scan, %1</source>
        <translation>扫描，%1</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>正在读取 %1</translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation>正在测量</translation>
    </message>
    <message>
        <source>the scan is too large to be measured</source>
        <translation>扫描过大，无法测量</translation>
    </message>
    <message>
        <source>Preparing the picture</source>
        <translation>正在准备图像</translation>
    </message>
    <message>
        <source>the system starts no thread for it</source>
        <translation>系统无法为此启动线程</translation>
    </message>
    <message>
        <source>there is not enough memory for this scan</source>
        <translation>内存不足，无法处理此扫描</translation>
    </message>
    <message>
        <source>Numbers of the scan</source>
        <translation>扫描的数值</translation>
    </message>
    <message>
        <source>Unit of length</source>
        <translation>长度单位</translation>
    </message>
    <message>
        <source>Unit of length; areas, volumes and curvatures follow</source>
        <translation>长度单位；面积、体积和曲率随之改变</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>单位(&amp;U)</translation>
    </message>
    <message>
        <source>Surface</source>
        <translation>表面</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>点</translation>
    </message>
    <message>
        <source>Triangles</source>
        <translation>三角形</translation>
    </message>
    <message>
        <source>Open edges</source>
        <translation>开放边</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>尺寸</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>深度</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>面积</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>体积</translation>
    </message>
    <message>
        <source>Open surface: its volume is closed over its middle.</source>
        <translation>开放表面：其体积经由中心封闭。</translation>
    </message>
    <message>
        <source>Highest</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>5 % lie above</source>
        <translation>5 % 高于此值</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>中位数</translation>
    </message>
    <message>
        <source>5 % lie below</source>
        <translation>5 % 低于此值</translation>
    </message>
    <message>
        <source>Lowest</source>
        <translation>最小</translation>
    </message>
    <message>
        <source>No scan</source>
        <translation>没有扫描</translation>
    </message>
    <message>
        <source>Open one to see its numbers</source>
        <translation>打开扫描即可查看数值</translation>
    </message>
    <message>
        <source>Drag to turn  ·  Shift-drag to move  ·  Wheel to zoom</source>
        <translation>拖动旋转  ·  按住 Shift 拖动平移  ·  滚轮缩放</translation>
    </message>
    <message>
        <source>Curvature under the mouse</source>
        <translation>鼠标处的曲率</translation>
    </message>
    <message>
        <source>Progress of the computation</source>
        <translation>计算进度</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>Abort the computation</source>
        <translation>中止计算</translation>
    </message>
    <message>
        <source>Stops the computation and keeps what is shown (Esc)</source>
        <translation>停止计算并保留当前显示 (Esc)</translation>
    </message>
    <message>
        <source>Curvature here  %1</source>
        <translation>此处曲率  %1</translation>
    </message>
    <message>
        <source>Picture of the scan</source>
        <translation>扫描图像</translation>
    </message>
    <message>
        <source>Arrow keys turn it, plus and minus come nearer and go away</source>
        <translation>方向键旋转图像，加号和减号拉近和推远</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>没有可显示窗口的屏幕；使用 --screenshot 则不需要</translation>
    </message>
</context>
</TS>
