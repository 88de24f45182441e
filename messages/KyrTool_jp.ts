<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Kyr_tool</name>
    <message>
        <source>unknown option &quot;%1&quot;</source>
        <translation>不明なオプション「%1」</translation>
    </message>
    <message>
        <source>an argument is missing</source>
        <translation>引数が足りません</translation>
    </message>
    <message>
        <source>one argument too many: &quot;%1&quot;</source>
        <translation>引数が 1 つ多すぎます: 「%1」</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 は値を取りません</translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation>%1 には値が必要です</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 は %2 から %3 までの数値です。「%4」は使えません</translation>
    </message>
    <message>
        <source>%1: no Base64 at byte %2</source>
        <translation>%1: %2 バイト目が Base64 ではありません</translation>
    </message>
    <message>
        <source>%1: ends within a group of four characters</source>
        <translation>%1: 4 文字の組の途中で終わっています</translation>
    </message>
    <message>
        <source>--group takes one of %1</source>
        <translation>--group には %1 のいずれかを指定します</translation>
    </message>
    <message>
        <source>how many threads work, 1 to 64; 1 unless told</source>
        <translation>作業スレッド数、1～64。省略時は 1</translation>
    </message>
    <message>
        <source>what compresses; zlib unless told</source>
        <translation>圧縮エンジン。省略時は zlib</translation>
    </message>
    <message>
        <source>how much may come out of the archive, in MiB; 512 unless told</source>
        <translation>アーカイブから展開できる量の上限、MiB 単位。省略時は 512</translation>
    </message>
    <message>
        <source>writes JSON, for programs</source>
        <translation>プログラム向けに JSON を出力します</translation>
    </message>
    <message>
        <source>converts a value, as in: kyr convert 25.4 mm in, kyr convert 25.4mm inch</source>
        <translation>値を換算します。例: kyr convert 25.4 mm in、kyr convert 25.4mm inch</translation>
    </message>
    <message>
        <source>the kind of both units, as LENGTH</source>
        <translation>両方の単位に共通の量の種類。例: LENGTH</translation>
    </message>
    <message>
        <source>decimals of the result, 0 to 60</source>
        <translation>結果の小数桁数、0～60</translation>
    </message>
    <message>
        <source>pixels of an inch, for figures</source>
        <translation>1 インチあたりのピクセル数（図用）</translation>
    </message>
    <message>
        <source>lists the kinds of quantities, or the units of one</source>
        <translation>量の種類、または 1 つの種類の単位を一覧表示します</translation>
    </message>
    <message>
        <source>says whether a zip stream is complete, and which pieces are damaged</source>
        <translation>zip ストリームの完全性と、破損したチャンクを示します</translation>
    </message>
    <message>
        <source>writes the content of a zip stream</source>
        <translation>zip ストリームの内容を出力します</translation>
    </message>
    <message>
        <source>writes what a damaged zip stream still holds; zeros where it is known how much is lost</source>
        <translation>破損した zip ストリームに残っている内容を出力します。失われた量が分かる所はゼロで埋めます</translation>
    </message>
    <message>
        <source>no zeros for what is lost</source>
        <translation>失われた部分をゼロで埋めません</translation>
    </message>
    <message>
        <source>makes a zip stream of a file; in pieces, when workers or an engine are named</source>
        <translation>ファイルから zip ストリームを作ります。--workers か --engine を指定すると、チャンクに分けます</translation>
    </message>
    <message>
        <source>the version of the content, 0 to 4294967295; 0 unless told</source>
        <translation>内容のバージョン、0～4294967295。省略時は 0</translation>
    </message>
    <message>
        <source>lists the files of a tar.gz</source>
        <translation>tar.gz 内のファイルを一覧表示します</translation>
    </message>
    <message>
        <source>makes a tar.gz of files and directories; keeps an older one if files are missing</source>
        <translation>ファイルとディレクトリから tar.gz を作ります。ファイルが欠けていれば古いものを残します</translation>
    </message>
    <message>
        <source>replaces an older archive also by one that misses files</source>
        <translation>ファイルが欠けたアーカイブでも、古いものを置き換えます</translation>
    </message>
    <message>
        <source>unpacks a tar.gz, of at most 512 MiB unless told, and replaces no files</source>
        <translation>tar.gz を展開します。省略時は 512 MiB まで、既存のファイルは置き換えません</translation>
    </message>
    <message>
        <source>replaces files that are there already</source>
        <translation>すでにあるファイルを置き換えます</translation>
    </message>
    <message>
        <source>writes a file as Base64, in one line</source>
        <translation>ファイルを Base64 で 1 行に出力します</translation>
    </message>
    <message>
        <source>writes the bytes of Base64 with any line ends</source>
        <translation>Base64 をバイト列に戻して出力します。改行は問いません</translation>
    </message>
    <message>
        <source>writes the CRC-16/XMODEM of each file</source>
        <translation>各ファイルの CRC-16/XMODEM を出力します</translation>
    </message>
    <message>
        <source>sorts lines in natural order: item9 before item10</source>
        <translation>行を自然順に並べ替えます。item9 は item10 より前になります</translation>
    </message>
    <message>
        <source>names the next free file of a series, as img0007.tif</source>
        <translation>img0007.tif のような連番の、次の空きファイル名を示します</translation>
    </message>
    <message>
        <source>renders the library&apos;s change log as a page of HTML</source>
        <translation>ライブラリの変更履歴を HTML のページとして出力します</translation>
    </message>
    <message>
        <source>what belongs together; context unless told</source>
        <translation>何ごとにまとめるか。省略時は context</translation>
    </message>
    <message>
        <source>of the page; English unless told</source>
        <translation>ページの言語。省略時は英語</translation>
    </message>
    <message>
        <source>writes an archive for support, with the N newest dumps</source>
        <translation>サポート用のアーカイブを書き出します。新しい順に N 個のメモリダンプを含みます</translation>
    </message>
    <message>
        <source>how many dumps go along, 0 to 1000; they hold memory, with secrets</source>
        <translation>添付するメモリダンプの数、0～1000。メモリの内容には機密が含まれます</translation>
    </message>
    <message>
        <source>replaces an older file</source>
        <translation>古いファイルを置き換えます</translation>
    </message>
    <message>
        <source>shows versions, directories and the machine</source>
        <translation>バージョン、ディレクトリ、コンピューターの情報を表示します</translation>
    </message>
    <message>
        <source>explains the command</source>
        <translation>コマンドを説明します</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>「%1」は数値ではありません</translation>
    </message>
    <message>
        <source>there is no unit &quot;%1&quot;; kyr units lists them</source>
        <translation>「%1」という単位はありません。kyr units で一覧を表示できます</translation>
    </message>
    <message>
        <source>&quot;%1&quot; (%2) and &quot;%3&quot; (%4) are units of different kinds</source>
        <translation>「%1」(%2) と「%3」(%4) は異なる種類の量の単位です</translation>
    </message>
    <message>
        <source>%1 has no unit &quot;%2&quot;</source>
        <translation>%1 に「%2」という単位はありません</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>単位がありません。</translation>
    </message>
    <message>
        <source>%1 %2 is too large a value</source>
        <translation>%1 %2 は大きすぎる値です</translation>
    </message>
    <message>
        <source>&quot;kyr help COMMAND&quot; or &quot;kyr COMMAND --help&quot; explains one of them, &quot;kyr --version&quot; names the version.</source>
        <translation>「kyr help コマンド」または「kyr コマンド --help」は個々のコマンドを説明し、「kyr --version」はバージョンを示します。</translation>
    </message>
    <message>
        <source>FILE may be - for standard input, OUTPUT - for standard output. An option&apos;s value may stand behind = as well; behind -- nothing is an option. Units that are hard to type have other spellings: um for µm, degC for °C, mm2 for mm²; see kyr units KIND.</source>
        <translation>FILE を - にすると標準入力、OUTPUT を - にすると標準出力になります。オプションの値は = の後にも書けます。-- より後はオプションとして扱いません。入力しにくい単位には別の書き方があります: µm は um、°C は degC、mm² は mm2。kyr units KIND を参照してください。</translation>
    </message>
    <message>
        <source>Exit codes: 0 all is well, 1 a file is at fault, 2 wrong usage, 130 ended by the user.</source>
        <translation>終了コード: 0 正常、1 ファイルに問題、2 使い方の誤り、130 ユーザーによる中断。</translation>
    </message>
    <message>
        <source>kyr looks into files and converts values.</source>
        <translation>kyr はファイルの中身を調べ、値を換算します。</translation>
    </message>
    <message>
        <source>; did you mean %1?</source>
        <translation>。%1 のことですか?</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>ディレクトリです</translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>開けません</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>そのようなファイルはありません</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>標準入力</translation>
    </message>
    <message>
        <source>%1: cannot be read</source>
        <translation>%1: 読み取れません</translation>
    </message>
    <message>
        <source>--language takes one of en, de, fr, jp, cn, pt</source>
        <translation>--language には en、de、fr、jp、cn、pt のいずれかを指定します</translation>
    </message>
    <message>
        <source>Kyr_%1.qm: cannot be read</source>
        <translation>Kyr_%1.qm: 読み取れません</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>使い方: %1</translation>
    </message>
    <message>
        <source>ended by the user before all was done</source>
        <translation>すべて終わる前にユーザーが中断しました</translation>
    </message>
    <message>
        <source>a command is missing</source>
        <translation>コマンドがありません</translation>
    </message>
    <message>
        <source>%1 needs one of %2</source>
        <translation>%1 には %2 のいずれかが必要です</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;</source>
        <translation>不明なコマンド「%1」</translation>
    </message>
    <message>
        <source>kyr COMMAND ...   (kyr --help explains)</source>
        <translation>kyr コマンド ...   (説明は kyr --help)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not end in a number below 2^32</source>
        <translation>「%1」の末尾が 2^32 未満の数値ではありません</translation>
    </message>
    <message>
        <source>%1: no number is left</source>
        <translation>%1: 空き番号がありません</translation>
    </message>
    <message>
        <source>standard output: no space left</source>
        <translation>標準出力: 空き容量がありません</translation>
    </message>
    <message>
        <source>standard output: cannot be written</source>
        <translation>標準出力: 書き込めません</translation>
    </message>
    <message>
        <source>--engine is zlib or fastest, not &quot;%1&quot;</source>
        <translation>--engine は zlib または fastest です。「%1」は使えません</translation>
    </message>
    <message>
        <source>%1: %2 sections, logs and dumps: %3, %4 bytes</source>
        <translation>%1: %2 セクション、ログとメモリダンプ: %3、%4 バイト</translation>
    </message>
    <message>
        <source>a report goes into a file, not to standard output</source>
        <translation>レポートは標準出力ではなくファイルに書き出します</translation>
    </message>
    <message>
        <source>the report is not complete: %1</source>
        <translation>レポートは不完全です: %1</translation>
    </message>
    <message>
        <source>It names this machine, its user and what is set; secrets are blanked as far as their
names tell. Unpack it and look at index.html before you pass it on.</source>
        <translation>このコンピューター、ユーザー、設定の内容が含まれます。名前から機密と分かるものは
消してあります。渡す前に展開し、index.html を確認してください。</translation>
    </message>
    <message>
        <source>%1: a line is too long</source>
        <translation>%1: 長すぎる行があります</translation>
    </message>
    <message>
        <source>%1: no complete tar.gz, or larger than --limit allows</source>
        <translation>%1: 完全な tar.gz ではないか、--limit の上限を超えています</translation>
    </message>
    <message>
        <source>%1: not written, as nothing is left for it</source>
        <translation>%1: 入れるものが残っていないため、書き出しません</translation>
    </message>
    <message>
        <source>%1: there is not enough memory</source>
        <translation>%1: メモリが足りません</translation>
    </message>
    <message>
        <source>%1: stays as it was, as the new archive misses what is named above; --force replaces it</source>
        <translation>%1: 新しいアーカイブには上記のものが欠けているため、元のままです。--force で置き換えます</translation>
    </message>
    <message>
        <source>%1: is the input as well and would be lost; give the output another name</source>
        <translation>%1: 入力でもあるため、失われてしまいます。出力に別の名前を付けてください</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>標準出力</translation>
    </message>
    <message>
        <source>%1: cannot be written to the end (is the disk full?)</source>
        <translation>%1: 最後まで書き込めません（ディスクの空き不足?）</translation>
    </message>
    <message>
        <source>there is no kind &quot;%1&quot;; kyr units lists them</source>
        <translation>「%1」という量の種類はありません。kyr units で一覧を表示できます</translation>
    </message>
    <message>
        <source># other names that are understood</source>
        <translation># ほかに使える名前</translation>
    </message>
    <message>
        <source># %1: internal value = (value - OFFSET) * FACTOR</source>
        <translation># %1: 内部の値 = (値 - OFFSET) * FACTOR</translation>
    </message>
    <message>
        <source>file version</source>
        <translation>ファイルバージョン</translation>
    </message>
    <message>
        <source>library version</source>
        <translation>ライブラリバージョン</translation>
    </message>
    <message>
        <source>written</source>
        <translation>作成日時</translation>
    </message>
    <message>
        <source>header size</source>
        <translation>ヘッダーサイズ</translation>
    </message>
    <message>
        <source>blocks</source>
        <translation>ブロック</translation>
    </message>
    <message>
        <source>compressed</source>
        <translation>圧縮後</translation>
    </message>
    <message>
        <source>content</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>ratio</source>
        <translation>圧縮率</translation>
    </message>
    <message>
        <source>pieces</source>
        <translation>チャンク</translation>
    </message>
    <message>
        <source>stream size</source>
        <translation>ストリームサイズ</translation>
    </message>
    <message>
        <source>file</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>state</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>behind the end</source>
        <translation>末尾の後</translation>
    </message>
    <message>
        <source>%1 of content saved</source>
        <translation>内容 %1 を救出しました</translation>
    </message>
    <message>
        <source>: all that was written</source>
        <translation>（書き込まれたものすべて）</translation>
    </message>
    <message>
        <source>, which may be wrong: there is no index</source>
        <translation>（索引がないため、誤りが含まれる可能性があります）</translation>
    </message>
    <message>
        <source>, all of them checked</source>
        <translation>（すべて検査済み）</translation>
    </message>
    <message>
        <source>; zeros in place of %1</source>
        <translation>。%1 分はゼロで埋めました</translation>
    </message>
    <message>
        <source>lost: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>欠損: 内容の %1～%2 バイト目（ストリームの %3～%4 バイト目）</translation>
    </message>
    <message>
        <source>lost: nobody knows how much behind byte %1 of the content (bytes %2 to %3 of the stream)</source>
        <translation>欠損: 内容の %1 バイト目より後、量は不明（ストリームの %2～%3 バイト目）</translation>
    </message>
    <message>
        <source>complete</source>
        <translation>完全</translation>
    </message>
    <message>
        <source>cut short at byte %1</source>
        <translation>%1 バイト目で途切れています</translation>
    </message>
    <message>
        <source>damaged at byte %1</source>
        <translation>%1 バイト目で破損しています</translation>
    </message>
    <message>
        <source>not read to its end</source>
        <translation>最後まで読み取っていません</translation>
    </message>
    <message>
        <source>%1 of content in %2</source>
        <translation>内容 %1（%2）</translation>
    </message>
    <message>
        <source>; behind its end: %1</source>
        <translation>。末尾の後: %1</translation>
    </message>
    <message>
        <source>; readable before: %1, which may be wrong</source>
        <translation>。その手前で読み取れた分: %1、誤りが含まれる可能性があります</translation>
    </message>
    <message>
        <source>; checked: %1 in %2 of %3</source>
        <translation>。検査済み: %1（%3のうち %2）</translation>
    </message>
    <message>
        <source>shows the header, the blocks and the pieces of a zip stream; of many pieces not all</source>
        <translation>zip ストリームのヘッダー、ブロック、チャンクを表示します。チャンクが多い場合は一部を省略します</translation>
    </message>
    <message>
        <source>all pieces, also of many</source>
        <translation>チャンクが多くてもすべて表示します</translation>
    </message>
    <message>
        <source>this is %1 %2 as %3, %4 %2 as %5; choose one with --kind</source>
        <translation>%3 としては %1 %2、%5 としては %4 %2 です。--kind で選んでください</translation>
    </message>
    <message>
        <source>index</source>
        <translation>索引</translation>
    </message>
    <message>
        <source>%1 with %2 of content in %3, %4 to %5 each</source>
        <translation>%1: 内容 %2、圧縮後 %3、1 個あたり %4～%5</translation>
    </message>
    <message>
        <source>piece</source>
        <translation>チャンク</translation>
    </message>
    <message>
        <source>at byte</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>圧縮後</translation>
    </message>
    <message>
        <source>content at</source>
        <translation>内容の位置</translation>
    </message>
    <message>
        <source>%1 more; --all shows them</source>
        <translation>ほかに %1 個。--all ですべて表示します</translation>
    </message>
    <message>
        <source>cannot be read: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>読み取り不能: 内容の %1～%2 バイト目（ストリームの %3～%4 バイト目）</translation>
    </message>
    <message>
        <source>cannot be read at byte %1</source>
        <translation>%1 バイト目で読み取れません</translation>
    </message>
    <message>
        <source>An older OUTPUT is replaced as soon as the new one is whole. Where a command would keep what is there, --force replaces it.</source>
        <translation>古い OUTPUT は、新しいものが完成した時点で置き換えます。既存のものを残すコマンドでは、--force で置き換えます。</translation>
    </message>
    <message>
        <source>shows where the time of a program went that KYR_TRACE traced</source>
        <translation>KYR_TRACE で記録したプログラムの時間の内訳を表示します</translation>
    </message>
    <message>
        <source>%1: byte %2: %3</source>
        <translation>%1: %2 バイト目: %3</translation>
    </message>
    <message>
        <source>an event is longer than a MiB</source>
        <translation>1 MiB を超えるイベントがあります</translation>
    </message>
    <message>
        <source>this is no trace, which begins with &quot;[&quot;</source>
        <translation>トレースではありません。トレースは「[」で始まります</translation>
    </message>
    <message>
        <source>an event begins with &quot;{&quot;</source>
        <translation>イベントは「{」で始まります</translation>
    </message>
    <message>
        <source>the event has no &quot;%1&quot;</source>
        <translation>イベントに「%1」がありません</translation>
    </message>
    <message>
        <source># times in milliseconds</source>
        <translation># 時間はミリ秒単位</translation>
    </message>
    <message>
        <source># the trace has no end: its process died, or writes it still</source>
        <translation># トレースに終わりがありません: プロセスが異常終了したか、まだ書き込み中です</translation>
    </message>
    <message>
        <source>%1: files that are written: %2 of %3</source>
        <translation>%1: 書き出したファイル: %3 個中 %2 個</translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>%1 bytes</comment>
        <translation>
            <numerusform>%1 バイト</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 block</source>
        <comment>%1 blocks</comment>
        <translation>
            <numerusform>%1 ブロック</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 piece</source>
        <comment>%1 pieces</comment>
        <translation>
            <numerusform>%1 チャンク</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 checked piece</source>
        <comment>%1 checked pieces</comment>
        <translation>
            <numerusform>検査済み %1 チャンク</numerusform>
        </translation>
    </message>
    <message>
        <source>names the functions and lines of a crash report, from the debug information of the build that crashed</source>
        <translation>異常終了したビルドのデバッグ情報から、クラッシュレポートの関数と行を示します</translation>
    </message>
    <message>
        <source>where debug information lies; may stand several times</source>
        <translation>デバッグ情報の場所。複数回指定できます</translation>
    </message>
    <message>
        <source>%1: the dump is cut short or damaged</source>
        <translation>%1: メモリダンプが途切れているか破損しています</translation>
    </message>
    <message>
        <source>%1: is the dump of an unknown kind of machine</source>
        <translation>%1: 未知の種類のコンピューターのメモリダンプです</translation>
    </message>
    <message>
        <source>%1: is too large for a report or a dump</source>
        <translation>%1: レポートやメモリダンプとしては大きすぎます</translation>
    </message>
    <message>
        <source>%1: is no folder</source>
        <translation>%1: フォルダーではありません</translation>
    </message>
    <message>
        <source>%1 (no build id: not checked)</source>
        <translation>%1（ビルド ID なし: 未確認）</translation>
    </message>
    <message>
        <source>no build id; there are the builds %1</source>
        <translation>ビルド ID なし。あるビルドは %1</translation>
    </message>
    <message>
        <source>no build id</source>
        <translation>ビルド ID なし</translation>
    </message>
    <message>
        <source>%1 crashed, there is %2</source>
        <translation>異常終了したのは %1、あるのは %2</translation>
    </message>
    <message>
        <source>symbols:</source>
        <translation>デバッグ情報:</translation>
    </message>
    <message>
        <source>%1: holds no backtrace, and is no dump</source>
        <translation>%1: バックトレースがなく、メモリダンプでもありません</translation>
    </message>
    <message>
        <source>neither llvm-symbolizer nor addr2line is installed, one of which reads debug information</source>
        <translation>デバッグ情報を読み取る llvm-symbolizer と addr2line のどちらもインストールされていません</translation>
    </message>
    <message>
        <source>%1: %2 cannot read it: %3</source>
        <translation>%1: %2 では読み取れません: %3</translation>
    </message>
    <message>
        <source>%1: its debug information cannot be read</source>
        <translation>%1: デバッグ情報を読み取れません</translation>
    </message>
</context>
</TS>
