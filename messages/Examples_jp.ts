<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Gauge</name>
    <message>
        <source>Gauge</source>
        <translation>ゲージ</translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation>長さ(&amp;L)</translation>
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
        <translation>単位(&amp;U)</translation>
    </message>
    <message>
        <source>Any unit may follow the number.</source>
        <translation>数値の後にはどの単位でも書けます。</translation>
    </message>
    <message>
        <source>Try gauge --help.</source>
        <translation>ヘルプは gauge --help で表示できます。</translation>
    </message>
    <message>
        <source>there is no gauge for %1</source>
        <translation>%1 用のゲージはありません</translation>
    </message>
    <message>
        <source>Shows a quantity that is typed as people write it.</source>
        <translation>人が書くとおりに入力された量を表示します。</translation>
    </message>
    <message>
        <source>quantity</source>
        <translation>量</translation>
    </message>
    <message>
        <source>what the field holds at first</source>
        <translation>最初に入力欄に入れておくもの</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>このヘルプを表示します</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>in which the quantity is shown</source>
        <translation>表示する量の単位</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>単位</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>ウィンドウの画像を書き出して終了します</translation>
    </message>
    <message>
        <source>give one quantity, in quotes</source>
        <translation>量を 1 つ、引用符で囲んで指定してください</translation>
    </message>
    <message>
        <source>the gauge has no unit %1</source>
        <translation>ゲージに %1 という単位はありません</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>ウィンドウを表示する画面がありません。--screenshot なら画面は不要です</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>%1 に書き込めません</translation>
    </message>
</context>
<context>
    <name>Surface</name>
    <message>
        <source>stopped by the user</source>
        <translation>ユーザーが中断しました</translation>
    </message>
    <message>
        <source>Computing curvatures</source>
        <translation>曲率を計算しています</translation>
    </message>
    <message>
        <source>Sorting the corners of triangles</source>
        <translation>三角形の頂点を並べ替えています</translation>
    </message>
    <message>
        <source>Finding neighbours and normals</source>
        <translation>隣接関係と法線を求めています</translation>
    </message>
    <message>
        <source>Smoothing normals</source>
        <translation>法線を平滑化しています</translation>
    </message>
    <message>
        <source>%1 copies of %2 are too many points</source>
        <translation>%2を %1 回複製すると、点が多すぎます</translation>
    </message>
    <message>
        <source>reading stopped early</source>
        <translation>読み取りが途中で終わりました</translation>
    </message>
    <message>
        <source>the content is no surface of this program</source>
        <translation>内容はこのプログラムの表面データではありません</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>%1 に書き込めません</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 に表面データがありません</translation>
    </message>
    <message>
        <source>lines with unknown keys, all told: %1</source>
        <translation>不明なキーワードの行、合計: %1</translation>
    </message>
    <message>
        <source>unknown key, line skipped: %1</source>
        <translation>不明なキーワード、行を無視しました: %1</translation>
    </message>
    <message>
        <source>in less than 2 ms</source>
        <translation>2 ms 未満</translation>
    </message>
    <message>
        <source>at %1 MB/s</source>
        <translation>%1 MB/s</translation>
    </message>
    <message>
        <source>the system starts no threads for the analysis</source>
        <translation>システムが解析用のスレッドを起動しません</translation>
    </message>
    <message>
        <source>a coordinate must be finite</source>
        <translation>座標は有限の値でなければなりません</translation>
    </message>
    <message>
        <source>there is no such point</source>
        <translation>そのような点はありません</translation>
    </message>
    <message>
        <source>missing are %1 and %2</source>
        <translation>欠けているのは %1と %2です</translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged: %1 of its %2 bytes of content is lost; the others were checked and are good</source>
        <comment>the file is damaged: %1 of its %2 bytes of content are lost; the others were checked and are good</comment>
        <translation>
            <numerusform>ファイルは破損しています: 内容 %2 バイト中 %1 バイトが失われました。残りは検査済みで問題ありません</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged, as byte %1 shows; what was read before (%2 byte) may be wrong</source>
        <comment>the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong</comment>
        <translation>
            <numerusform>ファイルは破損しています（%1 バイト目で判明）。それより前に読み取った内容（%2 バイト）には誤りが含まれる可能性があります</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file ends too early, at byte %1; the first %2 byte of content is good</source>
        <comment>the file ends too early, at byte %1; the first %2 bytes of content are good</comment>
        <translation>
            <numerusform>ファイルが途中の %1 バイト目で終わっています。内容の先頭 %2 バイトは問題ありません</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>%1 bytes</comment>
        <translation>
            <numerusform>%1 バイト</numerusform>
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
            <numerusform>データ %1 行</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 open edge</source>
        <comment>%1 open edges</comment>
        <translation>
            <numerusform>開いた辺 %1 本</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 point</source>
        <comment>%1 points</comment>
        <translation>
            <numerusform>%1 点</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 triangle</source>
        <comment>%1 triangles</comment>
        <translation>
            <numerusform>三角形 %1 個</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 worker</source>
        <comment>%1 workers</comment>
        <translation>
            <numerusform>%1 スレッド</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Tour</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation>%1 を読み取れません: %2</translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation>%1 に書き込めません: %2</translation>
    </message>
    <message>
        <source>harmless here: the content is the same</source>
        <translation>ここでは無害: 内容は同じです</translation>
    </message>
    <message>
        <source>TAKEN FOR GOOD DATA</source>
        <translation>正常なデータと誤認</translation>
    </message>
    <message>
        <source>cut short</source>
        <translation>途切れ</translation>
    </message>
    <message>
        <source>one bit flipped</source>
        <translation>1 ビット反転</translation>
    </message>
    <message>
        <source>sent as text</source>
        <translation>テキストで転送</translation>
    </message>
    <message>
        <source>newer program</source>
        <translation>新しいプログラム</translation>
    </message>
    <message>
        <source>Read the scan</source>
        <translation>スキャンの読み込み</translation>
    </message>
    <message>
        <source>file</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>holds</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>%1, %2, read %3</source>
        <translation>%1、%2、読み取り %3</translation>
    </message>
    <message>
        <source>read %1, %2 of them without geometry</source>
        <translation>%1を読み取り、うち %2 行は形状なし</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 に表面データがありません</translation>
    </message>
    <message>
        <source>repeated</source>
        <translation>繰り返し</translation>
    </message>
    <message>
        <source>%1 times, side by side: %2</source>
        <translation>並べて %1 回: %2</translation>
    </message>
    <message>
        <source>Measure it (one unit of the file is 1 %1)</source>
        <translation>測定（ファイルの 1 単位は 1 %1）</translation>
    </message>
    <message>
        <source>%1 is too large to be measured</source>
        <translation>%1 は大きすぎて測定できません</translation>
    </message>
    <message>
        <source>width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>height</source>
        <translation>高さ</translation>
    </message>
    <message>
        <source>depth</source>
        <translation>奥行き</translation>
    </message>
    <message>
        <source>surface</source>
        <translation>表面</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>体積</translation>
    </message>
    <message>
        <source>the surface has %1; its volume is closed over the middle</source>
        <translation>表面に%1があります。体積は中心に向かって閉じて計算します</translation>
    </message>
    <message>
        <source>jobs</source>
        <translation>ジョブ</translation>
    </message>
    <message>
        <source>time</source>
        <translation>時間</translation>
    </message>
    <message>
        <source>%1 s of computing in %2 s: %3 processors busy</source>
        <translation>計算 %1 s、経過 %2 s: プロセッサ %3 個が稼働</translation>
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
        <translation>下位 5%</translation>
    </message>
    <message>
        <source>median</source>
        <translation>中央値</translation>
    </message>
    <message>
        <source>5% lie above</source>
        <translation>上位 5%</translation>
    </message>
    <message>
        <source>highest</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>Analyse it on %1</source>
        <translation>%1で解析</translation>
    </message>
    <message>
        <source>curvatures</source>
        <translation>曲率</translation>
    </message>
    <message>
        <source>%1 without a curvature: no triangle of any area</source>
        <translation>%1は曲率なし: 面積のある三角形がありません</translation>
    </message>
    <message>
        <source>Keep it in a project file</source>
        <translation>プロジェクトファイルへの保存</translation>
    </message>
    <message>
        <source>wrote %1</source>
        <translation>%1 を書き出しました</translation>
    </message>
    <message>
        <source>time of writing</source>
        <translation>書き込み日時</translation>
    </message>
    <message>
        <source>content</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>圧縮後</translation>
    </message>
    <message>
        <source>%1, %2% of the content</source>
        <translation>%1、内容の %2%</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>written %1, read %2</source>
        <translation>書き込み %1、読み取り %2</translation>
    </message>
    <message>
        <source>compared</source>
        <translation>比較</translation>
    </message>
    <message>
        <source>all %1 equal</source>
        <translation>%1、すべて一致</translation>
    </message>
    <message>
        <source>DIFFERENT: %1</source>
        <translation>不一致: %1</translation>
    </message>
    <message>
        <source>libKyr %1: a scan from text to a project file and back</source>
        <translation>libKyr %1: スキャンをテキストからプロジェクトファイルへ、そして元へ</translation>
    </message>
    <message>
        <source>What damage looks like (on copies)</source>
        <translation>破損の現れ方（コピーで試行）</translation>
    </message>
    <message>
        <source>no damaged copy was taken for good data</source>
        <translation>破損したコピーを正常なデータと誤認したものはありません</translation>
    </message>
    <message>
        <source>A DAMAGED COPY WAS TAKEN FOR GOOD</source>
        <translation>破損したコピーを正常と誤認しました</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>ログ</translation>
    </message>
    <message>
        <source>Everything held.</source>
        <translation>すべて問題ありませんでした。</translation>
    </message>
    <message>
        <source>SOMETHING DID NOT HOLD.</source>
        <translation>問題がありました。</translation>
    </message>
    <message>
        <source>cannot write to standard output</source>
        <translation>標準出力に書き込めません</translation>
    </message>
    <message>
        <source>%1; nothing is half written</source>
        <translation>%1。中途半端に書かれたものはありません</translation>
    </message>
    <message>
        <source>out of memory (%1)</source>
        <translation>メモリ不足 (%1)</translation>
    </message>
    <message>
        <source>working</source>
        <translation>処理中</translation>
    </message>
    <message>
        <source>the system starts no thread for the analysis</source>
        <translation>システムが解析用のスレッドを起動しません</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>%1 に書き込めません</translation>
    </message>
    <message>
        <source>cannot pack %1</source>
        <translation>%1 をアーカイブできません</translation>
    </message>
    <message>
        <source>cannot make a folder in %1 for temporary files</source>
        <translation>%1 に一時ファイル用のフォルダーを作れません</translation>
    </message>
    <message>
        <source>Pack it all</source>
        <translation>すべてをアーカイブ</translation>
    </message>
    <message>
        <source>Try tour --help.</source>
        <translation>ヘルプは tour --help で表示できます。</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3</source>
        <translation>--%1 は %2 から %3 までの数値です</translation>
    </message>
    <message>
        <source>the project file would replace %1</source>
        <translation>プロジェクトファイルが %1 を置き換えてしまいます</translation>
    </message>
    <message>
        <source>the archive would replace %1</source>
        <translation>アーカイブが %1 を置き換えてしまいます</translation>
    </message>
    <message>
        <source>Reads a scan, measures it, keeps it in a project file and packs it all.</source>
        <translation>スキャンを読み込んで測定し、プロジェクトファイルに保存して、すべてをアーカイブします。</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>このヘルプを表示します</translation>
    </message>
    <message>
        <source>scan</source>
        <translation>スキャン</translation>
    </message>
    <message>
        <source>an OBJ file</source>
        <translation>OBJ ファイル</translation>
    </message>
    <message>
        <source>what one unit of the file is; default mm</source>
        <translation>ファイルの 1 単位の意味。省略時は mm</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>単位</translation>
    </message>
    <message>
        <source>where the project file goes; default here</source>
        <translation>プロジェクトファイルの保存先。省略時は現在の場所</translation>
    </message>
    <message>
        <source>directory</source>
        <translation>ディレクトリ</translation>
    </message>
    <message>
        <source>where it is all packed as a tar.gz; default beside the project file</source>
        <translation>すべてをまとめる tar.gz の保存先。省略時はプロジェクトファイルと同じ場所</translation>
    </message>
    <message>
        <source>how often the scan is repeated, side by side; default 1</source>
        <translation>スキャンを並べて繰り返す回数。省略時は 1</translation>
    </message>
    <message>
        <source>number</source>
        <translation>数</translation>
    </message>
    <message>
        <source>threads that analyse it; default one per processor</source>
        <translation>解析するスレッド数。省略時はプロセッサごとに 1</translation>
    </message>
    <message>
        <source>how often normals are smoothed; default 2</source>
        <translation>法線を平滑化する回数。省略時は 2</translation>
    </message>
    <message>
        <source>give one OBJ file</source>
        <translation>OBJ ファイルを 1 つ指定してください</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>%1 という長さの単位はありません</translation>
    </message>
    <message>
        <source>saved of it</source>
        <translation>救出</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, equal to what was written</source>
        <comment>%1 of %2 pieces, equal to what was written</comment>
        <translation>
            <numerusform>%2 チャンク中 %1、書き込んだものと一致</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, NOT WHAT WAS WRITTEN</source>
        <comment>%1 of %2 pieces, NOT WHAT WAS WRITTEN</comment>
        <translation>
            <numerusform>%2 チャンク中 %1、書き込んだものと不一致</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>Legend of the colours</source>
        <translation>色の凡例</translation>
    </message>
    <message>
        <source>Mean curvature, %1: %2</source>
        <translation>平均曲率、%1: %2</translation>
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
        <translation>単位 %1</translation>
    </message>
    <message>
        <source>ridges</source>
        <translation>凸部</translation>
    </message>
    <message>
        <source>hollows</source>
        <translation>凹部</translation>
    </message>
    <message>
        <source>Try viewer --help.</source>
        <translation>ヘルプは viewer --help で表示できます。</translation>
    </message>
    <message>
        <source>no size: %1; it should look like 1280x800</source>
        <translation>サイズではありません: %1。1280x800 のように指定してください</translation>
    </message>
    <message>
        <source>Shows a scan, coloured by its curvature.</source>
        <translation>曲率で色付けしたスキャンを表示します。</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>このヘルプを表示します</translation>
    </message>
    <message>
        <source>file</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>an OBJ file or a project (.kyr)</source>
        <translation>OBJ ファイルまたはプロジェクト (.kyr)</translation>
    </message>
    <message>
        <source>what one unit of an OBJ file is; default mm</source>
        <translation>OBJ ファイルの 1 単位の意味。省略時は mm</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>単位</translation>
    </message>
    <message>
        <source>how often the scan is shown, side by side; default 1</source>
        <translation>スキャンを並べて表示する数。省略時は 1</translation>
    </message>
    <message>
        <source>number</source>
        <translation>数</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>ウィンドウの画像を書き出して終了します</translation>
    </message>
    <message>
        <source>of the window; default 1280x800</source>
        <translation>ウィンドウのサイズ。省略時は 1280x800</translation>
    </message>
    <message>
        <source>size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>give one file</source>
        <translation>ファイルを 1 つ指定してください</translation>
    </message>
    <message>
        <source>no number of copies: %1</source>
        <translation>複製の数ではありません: %1</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>%1 という長さの単位はありません</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>%1 に書き込めません</translation>
    </message>
    <message>
        <source>a screenshot needs a file</source>
        <translation>スクリーンショットにはファイルが必要です</translation>
    </message>
    <message>
        <source>Scan viewer</source>
        <translation>スキャンビューアー</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>開く(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Save picture…</source>
        <translation>画像を保存(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>全体表示(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Oblique</source>
        <translation>斜め(&amp;O)</translation>
    </message>
    <message>
        <source>F&amp;ront</source>
        <translation>前(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>後(&amp;B)</translation>
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
        <translation>全体表示</translation>
    </message>
    <message>
        <source>Show all of the scan (F)</source>
        <translation>スキャン全体を表示 (F)</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
    <message>
        <source>Back to the first view (Home)</source>
        <translation>最初の表示に戻る (Home)</translation>
    </message>
    <message>
        <source>Drop a scan here</source>
        <translation>ここにスキャンをドロップ</translation>
    </message>
    <message>
        <source>an OBJ file, or a project (.kyr)</source>
        <translation>OBJ ファイルまたはプロジェクト (.kyr)</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>開く…</translation>
    </message>
    <message>
        <source>Open a scan</source>
        <translation>スキャンを開く</translation>
    </message>
    <message>
        <source>Scans and projects</source>
        <translation>スキャンとプロジェクト</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>すべてのファイル</translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation>画像を保存</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 に書き込めませんでした。</translation>
    </message>
    <message>
        <source>%1 was not opened: %2</source>
        <translation>%1 を開けませんでした: %2</translation>
    </message>
    <message>
        <source>Opening %1 was aborted.</source>
        <translation>%1 を開くのを中止しました。</translation>
    </message>
    <message>
        <source>%1 – Scan viewer</source>
        <translation>%1 – スキャンビューアー</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>メッセージ</translation>
    </message>
    <message>
        <source>Put the message away</source>
        <translation>メッセージを閉じる</translation>
    </message>
    <message>
        <source>Project, %1</source>
        <translation>プロジェクト、%1</translation>
    </message>
    <message>
        <source>Scan, %1</source>
        <translation>スキャン、%1</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 を読み込んでいます</translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation>測定しています</translation>
    </message>
    <message>
        <source>the scan is too large to be measured</source>
        <translation>スキャンが大きすぎて測定できません</translation>
    </message>
    <message>
        <source>Preparing the picture</source>
        <translation>画像を準備しています</translation>
    </message>
    <message>
        <source>the system starts no thread for it</source>
        <translation>システムがそのためのスレッドを起動しません</translation>
    </message>
    <message>
        <source>there is not enough memory for this scan</source>
        <translation>このスキャンに必要なメモリが足りません</translation>
    </message>
    <message>
        <source>Numbers of the scan</source>
        <translation>スキャンの数値</translation>
    </message>
    <message>
        <source>Unit of length</source>
        <translation>長さの単位</translation>
    </message>
    <message>
        <source>Unit of length; areas, volumes and curvatures follow</source>
        <translation>長さの単位。面積、体積、曲率も従います</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>単位(&amp;U)</translation>
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
        <translation>開いた辺</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>寸法</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高さ</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>奥行き</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>面積</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>体積</translation>
    </message>
    <message>
        <source>Open surface: its volume is closed over its middle.</source>
        <translation>開いた表面: 体積は中心に向かって閉じて計算しています。</translation>
    </message>
    <message>
        <source>Highest</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>5 % lie above</source>
        <translation>上位 5 %</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>中央値</translation>
    </message>
    <message>
        <source>5 % lie below</source>
        <translation>下位 5 %</translation>
    </message>
    <message>
        <source>Lowest</source>
        <translation>最小</translation>
    </message>
    <message>
        <source>No scan</source>
        <translation>スキャンなし</translation>
    </message>
    <message>
        <source>Open one to see its numbers</source>
        <translation>開くと数値が表示されます</translation>
    </message>
    <message>
        <source>Drag to turn  ·  Shift-drag to move  ·  Wheel to zoom</source>
        <translation>ドラッグで回転  ·  Shift+ドラッグで移動  ·  ホイールで拡大縮小</translation>
    </message>
    <message>
        <source>Curvature under the mouse</source>
        <translation>マウス位置の曲率</translation>
    </message>
    <message>
        <source>Progress of the computation</source>
        <translation>計算の進行状況</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>Abort the computation</source>
        <translation>計算を中止</translation>
    </message>
    <message>
        <source>Stops the computation and keeps what is shown (Esc)</source>
        <translation>計算を止め、表示中のものはそのまま残します (Esc)</translation>
    </message>
    <message>
        <source>Curvature here  %1</source>
        <translation>ここの曲率  %1</translation>
    </message>
    <message>
        <source>Picture of the scan</source>
        <translation>スキャンの画像</translation>
    </message>
    <message>
        <source>Arrow keys turn it, plus and minus come nearer and go away</source>
        <translation>矢印キーで回転し、プラスとマイナスで近づけたり遠ざけたりします</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>ウィンドウを表示する画面がありません。--screenshot なら画面は不要です</translation>
    </message>
</context>
</TS>
