<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_PT" sourcelanguage="en">
<context>
    <name>Kyr_tool</name>
    <message>
        <source>unknown option &quot;%1&quot;</source>
        <translation>opção desconhecida «%1»</translation>
    </message>
    <message>
        <source>an argument is missing</source>
        <translation>falta um argumento</translation>
    </message>
    <message>
        <source>one argument too many: &quot;%1&quot;</source>
        <translation>um argumento a mais: «%1»</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 não recebe valor</translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation>%1 precisa de um valor</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 recebe um número de %2 a %3, não «%4»</translation>
    </message>
    <message>
        <source>%1: no Base64 at byte %2</source>
        <translation>%1: não é Base64 no byte %2</translation>
    </message>
    <message>
        <source>%1: ends within a group of four characters</source>
        <translation>%1: termina a meio de um grupo de quatro caracteres</translation>
    </message>
    <message>
        <source>--group takes one of %1</source>
        <translation>--group recebe um de %1</translation>
    </message>
    <message>
        <source>how many threads work, 1 to 64; 1 unless told</source>
        <translation>quantas threads trabalham, de 1 a 64; por omissão 1</translation>
    </message>
    <message>
        <source>what compresses; zlib unless told</source>
        <translation>o que comprime; por omissão zlib</translation>
    </message>
    <message>
        <source>how much may come out of the archive, in MiB; 512 unless told</source>
        <translation>quanto pode sair do arquivo, em MiB; por omissão 512</translation>
    </message>
    <message>
        <source>writes JSON, for programs</source>
        <translation>escreve JSON, para programas</translation>
    </message>
    <message>
        <source>converts a value, as in: kyr convert 25.4 mm in, kyr convert 25.4mm inch</source>
        <translation>converte um valor, como: kyr convert 25.4 mm in, kyr convert 25,4mm inch</translation>
    </message>
    <message>
        <source>the kind of both units, as LENGTH</source>
        <translation>a natureza de ambas as unidades, como LENGTH</translation>
    </message>
    <message>
        <source>decimals of the result, 0 to 60</source>
        <translation>casas decimais do resultado, de 0 a 60</translation>
    </message>
    <message>
        <source>pixels of an inch, for figures</source>
        <translation>píxeis por polegada, para figuras</translation>
    </message>
    <message>
        <source>lists the kinds of quantities, or the units of one</source>
        <translation>enumera as naturezas das grandezas, ou as unidades de uma</translation>
    </message>
    <message>
        <source>says whether a zip stream is complete, and which pieces are damaged</source>
        <translation>diz se um fluxo zip está completo e que segmentos estão danificados</translation>
    </message>
    <message>
        <source>writes the content of a zip stream</source>
        <translation>escreve o conteúdo de um fluxo zip</translation>
    </message>
    <message>
        <source>writes what a damaged zip stream still holds; zeros where it is known how much is lost</source>
        <translation>escreve o que um fluxo zip danificado ainda contém; zeros onde se sabe quanto se perdeu</translation>
    </message>
    <message>
        <source>no zeros for what is lost</source>
        <translation>sem zeros no lugar do que se perdeu</translation>
    </message>
    <message>
        <source>makes a zip stream of a file; in pieces, when workers or an engine are named</source>
        <translation>faz de um ficheiro um fluxo zip; em segmentos, se for indicado --workers ou --engine</translation>
    </message>
    <message>
        <source>the version of the content, 0 to 4294967295; 0 unless told</source>
        <translation>a versão do conteúdo, de 0 a 4294967295; por omissão 0</translation>
    </message>
    <message>
        <source>lists the files of a tar.gz</source>
        <translation>enumera os ficheiros de um tar.gz</translation>
    </message>
    <message>
        <source>makes a tar.gz of files and directories; keeps an older one if files are missing</source>
        <translation>faz um tar.gz de ficheiros e diretórios; conserva o anterior se faltarem ficheiros</translation>
    </message>
    <message>
        <source>replaces an older archive also by one that misses files</source>
        <translation>substitui o arquivo anterior mesmo por um a que faltam ficheiros</translation>
    </message>
    <message>
        <source>unpacks a tar.gz, of at most 512 MiB unless told, and replaces no files</source>
        <translation>extrai um tar.gz, por omissão até 512 MiB, sem substituir ficheiros</translation>
    </message>
    <message>
        <source>replaces files that are there already</source>
        <translation>substitui ficheiros que já existem</translation>
    </message>
    <message>
        <source>writes a file as Base64, in one line</source>
        <translation>escreve um ficheiro em Base64, numa só linha</translation>
    </message>
    <message>
        <source>writes the bytes of Base64 with any line ends</source>
        <translation>escreve os bytes de Base64, com quaisquer fins de linha</translation>
    </message>
    <message>
        <source>writes the CRC-16/XMODEM of each file</source>
        <translation>escreve o CRC-16/XMODEM de cada ficheiro</translation>
    </message>
    <message>
        <source>sorts lines in natural order: item9 before item10</source>
        <translation>ordena linhas na ordem natural: item9 antes de item10</translation>
    </message>
    <message>
        <source>names the next free file of a series, as img0007.tif</source>
        <translation>indica o próximo ficheiro livre de uma série, como img0007.tif</translation>
    </message>
    <message>
        <source>renders the library&apos;s change log as a page of HTML</source>
        <translation>escreve o registo de alterações da biblioteca como página HTML</translation>
    </message>
    <message>
        <source>what belongs together; context unless told</source>
        <translation>o que fica junto; por omissão context</translation>
    </message>
    <message>
        <source>of the page; English unless told</source>
        <translation>a da página; por omissão inglês</translation>
    </message>
    <message>
        <source>writes an archive for support, with the N newest dumps</source>
        <translation>escreve um arquivo para a assistência, com as N imagens de memória mais recentes</translation>
    </message>
    <message>
        <source>how many dumps go along, 0 to 1000; they hold memory, with secrets</source>
        <translation>quantas imagens de memória vão junto, de 0 a 1000; contêm memória, com segredos</translation>
    </message>
    <message>
        <source>replaces an older file</source>
        <translation>substitui um ficheiro anterior</translation>
    </message>
    <message>
        <source>shows versions, directories and the machine</source>
        <translation>mostra versões, diretórios e a máquina</translation>
    </message>
    <message>
        <source>explains the command</source>
        <translation>explica o comando</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>«%1» não é um número</translation>
    </message>
    <message>
        <source>there is no unit &quot;%1&quot;; kyr units lists them</source>
        <translation>não há a unidade «%1»; kyr units enumera-as</translation>
    </message>
    <message>
        <source>&quot;%1&quot; (%2) and &quot;%3&quot; (%4) are units of different kinds</source>
        <translation>«%1» (%2) e «%3» (%4) são unidades de natureza diferente</translation>
    </message>
    <message>
        <source>%1 has no unit &quot;%2&quot;</source>
        <translation>%1 não tem a unidade «%2»</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>Falta uma unidade.</translation>
    </message>
    <message>
        <source>%1 %2 is too large a value</source>
        <translation>%1 %2 é um valor demasiado grande</translation>
    </message>
    <message>
        <source>&quot;kyr help COMMAND&quot; or &quot;kyr COMMAND --help&quot; explains one of them, &quot;kyr --version&quot; names the version.</source>
        <translation>«kyr help COMANDO» ou «kyr COMANDO --help» explica um deles, «kyr --version» indica a versão.</translation>
    </message>
    <message>
        <source>FILE may be - for standard input, OUTPUT - for standard output. An option&apos;s value may stand behind = as well; behind -- nothing is an option. Units that are hard to type have other spellings: um for µm, degC for °C, mm2 for mm²; see kyr units KIND.</source>
        <translation>FILE pode ser - para a entrada padrão, OUTPUT - para a saída padrão. O valor de uma opção pode também vir depois de =; depois de -- nada é opção. As unidades difíceis de escrever têm outras grafias: um para µm, degC para °C, mm2 para mm²; ver kyr units KIND.</translation>
    </message>
    <message>
        <source>Exit codes: 0 all is well, 1 a file is at fault, 2 wrong usage, 130 ended by the user.</source>
        <translation>Códigos de saída: 0 tudo bem, 1 há um ficheiro com problemas, 2 utilização errada, 130 terminado pelo utilizador.</translation>
    </message>
    <message>
        <source>kyr looks into files and converts values.</source>
        <translation>kyr examina ficheiros e converte valores.</translation>
    </message>
    <message>
        <source>; did you mean %1?</source>
        <translation>; queria dizer %1?</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>é um diretório</translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>não pode ser aberto</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>esse ficheiro não existe</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>entrada padrão</translation>
    </message>
    <message>
        <source>%1: cannot be read</source>
        <translation>%1: não pode ser lido</translation>
    </message>
    <message>
        <source>--language takes one of en, de, fr, jp, cn, pt</source>
        <translation>--language recebe um de en, de, fr, jp, cn, pt</translation>
    </message>
    <message>
        <source>Kyr_%1.qm: cannot be read</source>
        <translation>Kyr_%1.qm: não pode ser lido</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>utilização: %1</translation>
    </message>
    <message>
        <source>ended by the user before all was done</source>
        <translation>terminado pelo utilizador antes de estar tudo feito</translation>
    </message>
    <message>
        <source>a command is missing</source>
        <translation>falta um comando</translation>
    </message>
    <message>
        <source>%1 needs one of %2</source>
        <translation>%1 precisa de um de %2</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;</source>
        <translation>comando desconhecido «%1»</translation>
    </message>
    <message>
        <source>kyr COMMAND ...   (kyr --help explains)</source>
        <translation>kyr COMANDO ...   (kyr --help explica)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not end in a number below 2^32</source>
        <translation>«%1» não termina num número inferior a 2^32</translation>
    </message>
    <message>
        <source>%1: no number is left</source>
        <translation>%1: já não há nenhum número livre</translation>
    </message>
    <message>
        <source>standard output: no space left</source>
        <translation>saída padrão: não há espaço</translation>
    </message>
    <message>
        <source>standard output: cannot be written</source>
        <translation>saída padrão: não pode ser escrita</translation>
    </message>
    <message>
        <source>--engine is zlib or fastest, not &quot;%1&quot;</source>
        <translation>--engine é zlib ou fastest, não «%1»</translation>
    </message>
    <message>
        <source>%1: %2 sections, logs and dumps: %3, %4 bytes</source>
        <translation>%1: %2 secções, registos e imagens de memória: %3, %4 bytes</translation>
    </message>
    <message>
        <source>a report goes into a file, not to standard output</source>
        <translation>um relatório vai para um ficheiro, não para a saída padrão</translation>
    </message>
    <message>
        <source>the report is not complete: %1</source>
        <translation>o relatório não está completo: %1</translation>
    </message>
    <message>
        <source>It names this machine, its user and what is set; secrets are blanked as far as their
names tell. Unpack it and look at index.html before you pass it on.</source>
        <translation>Indica esta máquina, o seu utilizador e o que está definido; os segredos são apagados na medida em que
os nomes os revelam. Extraia-o e veja index.html antes de o passar adiante.</translation>
    </message>
    <message>
        <source>%1: a line is too long</source>
        <translation>%1: uma linha é demasiado longa</translation>
    </message>
    <message>
        <source>%1: no complete tar.gz, or larger than --limit allows</source>
        <translation>%1: não é um tar.gz completo, ou é maior do que --limit permite</translation>
    </message>
    <message>
        <source>%1: not written, as nothing is left for it</source>
        <translation>%1: não foi escrito, porque nada resta para ele</translation>
    </message>
    <message>
        <source>%1: there is not enough memory</source>
        <translation>%1: não há memória suficiente</translation>
    </message>
    <message>
        <source>%1: stays as it was, as the new archive misses what is named above; --force replaces it</source>
        <translation>%1: fica como estava, porque ao novo arquivo falta o que está indicado acima; --force substitui-o</translation>
    </message>
    <message>
        <source>%1: is the input as well and would be lost; give the output another name</source>
        <translation>%1: é também a entrada e perder-se-ia; dê outro nome à saída</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>saída padrão</translation>
    </message>
    <message>
        <source>%1: cannot be written to the end (is the disk full?)</source>
        <translation>%1: não pode ser escrito até ao fim (o disco está cheio?)</translation>
    </message>
    <message>
        <source>there is no kind &quot;%1&quot;; kyr units lists them</source>
        <translation>não há a natureza «%1»; kyr units enumera-as</translation>
    </message>
    <message>
        <source># other names that are understood</source>
        <translation># outros nomes que são entendidos</translation>
    </message>
    <message>
        <source># %1: internal value = (value - OFFSET) * FACTOR</source>
        <translation># %1: valor interno = (valor - OFFSET) * FACTOR</translation>
    </message>
    <message>
        <source>file version</source>
        <translation>versão do ficheiro</translation>
    </message>
    <message>
        <source>library version</source>
        <translation>versão da biblioteca</translation>
    </message>
    <message>
        <source>written</source>
        <translation>escrito</translation>
    </message>
    <message>
        <source>header size</source>
        <translation>tamanho do cabeçalho</translation>
    </message>
    <message>
        <source>blocks</source>
        <translation>blocos</translation>
    </message>
    <message>
        <source>compressed</source>
        <translation>comprimido</translation>
    </message>
    <message>
        <source>content</source>
        <translation>conteúdo</translation>
    </message>
    <message>
        <source>ratio</source>
        <translation>taxa</translation>
    </message>
    <message>
        <source>pieces</source>
        <translation>segmentos</translation>
    </message>
    <message>
        <source>stream size</source>
        <translation>tamanho do fluxo</translation>
    </message>
    <message>
        <source>file</source>
        <translation>ficheiro</translation>
    </message>
    <message>
        <source>state</source>
        <translation>estado</translation>
    </message>
    <message>
        <source>behind the end</source>
        <translation>depois do fim</translation>
    </message>
    <message>
        <source>%1 of content saved</source>
        <translation>%1 de conteúdo salvos</translation>
    </message>
    <message>
        <source>: all that was written</source>
        <translation>: tudo o que foi escrito</translation>
    </message>
    <message>
        <source>, which may be wrong: there is no index</source>
        <translation>, que podem estar errados: não há índice</translation>
    </message>
    <message>
        <source>, all of them checked</source>
        <translation>, todos verificados</translation>
    </message>
    <message>
        <source>; zeros in place of %1</source>
        <translation>; zeros no lugar de %1</translation>
    </message>
    <message>
        <source>lost: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>perdidos: bytes %1 a %2 do conteúdo (bytes %3 a %4 do fluxo)</translation>
    </message>
    <message>
        <source>lost: nobody knows how much behind byte %1 of the content (bytes %2 to %3 of the stream)</source>
        <translation>perdidos: ninguém sabe quanto depois do byte %1 do conteúdo (bytes %2 a %3 do fluxo)</translation>
    </message>
    <message>
        <source>complete</source>
        <translation>completo</translation>
    </message>
    <message>
        <source>cut short at byte %1</source>
        <translation>truncado no byte %1</translation>
    </message>
    <message>
        <source>damaged at byte %1</source>
        <translation>danificado no byte %1</translation>
    </message>
    <message>
        <source>not read to its end</source>
        <translation>não foi lido até ao fim</translation>
    </message>
    <message>
        <source>%1 of content in %2</source>
        <translation>%1 de conteúdo em %2</translation>
    </message>
    <message>
        <source>; behind its end: %1</source>
        <translation>; depois do seu fim: %1</translation>
    </message>
    <message>
        <source>; readable before: %1, which may be wrong</source>
        <translation>; legível antes: %1, que pode estar errado</translation>
    </message>
    <message>
        <source>; checked: %1 in %2 of %3</source>
        <translation>; verificados: %1 em %2 de %3</translation>
    </message>
    <message>
        <source>shows the header, the blocks and the pieces of a zip stream; of many pieces not all</source>
        <translation>mostra o cabeçalho, os blocos e os segmentos de um fluxo zip; de muitos segmentos, não todos</translation>
    </message>
    <message>
        <source>all pieces, also of many</source>
        <translation>todos os segmentos, mesmo que sejam muitos</translation>
    </message>
    <message>
        <source>this is %1 %2 as %3, %4 %2 as %5; choose one with --kind</source>
        <translation>isto é %1 %2 como %3, %4 %2 como %5; escolha com --kind</translation>
    </message>
    <message>
        <source>index</source>
        <translation>índice</translation>
    </message>
    <message>
        <source>%1 with %2 of content in %3, %4 to %5 each</source>
        <translation>%1 com %2 de conteúdo em %3, cada um de %4 a %5</translation>
    </message>
    <message>
        <source>piece</source>
        <translation>segmento</translation>
    </message>
    <message>
        <source>at byte</source>
        <translation>no byte</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>comprimido</translation>
    </message>
    <message>
        <source>content at</source>
        <translation>conteúdo em</translation>
    </message>
    <message>
        <source>%1 more; --all shows them</source>
        <translation>mais %1; --all mostra-os</translation>
    </message>
    <message>
        <source>cannot be read: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>ilegíveis: bytes %1 a %2 do conteúdo (bytes %3 a %4 do fluxo)</translation>
    </message>
    <message>
        <source>cannot be read at byte %1</source>
        <translation>ilegível no byte %1</translation>
    </message>
    <message>
        <source>An older OUTPUT is replaced as soon as the new one is whole. Where a command would keep what is there, --force replaces it.</source>
        <translation>Um OUTPUT anterior é substituído assim que o novo estiver inteiro. Onde um comando conservaria o que existe, --force substitui-o.</translation>
    </message>
    <message>
        <source>shows where the time of a program went that KYR_TRACE traced</source>
        <translation>mostra onde foi gasto o tempo de um programa que KYR_TRACE registou</translation>
    </message>
    <message>
        <source>%1: byte %2: %3</source>
        <translation>%1: byte %2: %3</translation>
    </message>
    <message>
        <source>an event is longer than a MiB</source>
        <translation>um evento é maior do que um MiB</translation>
    </message>
    <message>
        <source>this is no trace, which begins with &quot;[&quot;</source>
        <translation>isto não é um rastreio, que começa por «[»</translation>
    </message>
    <message>
        <source>an event begins with &quot;{&quot;</source>
        <translation>um evento começa por «{»</translation>
    </message>
    <message>
        <source>the event has no &quot;%1&quot;</source>
        <translation>o evento não tem «%1»</translation>
    </message>
    <message>
        <source># times in milliseconds</source>
        <translation># tempos em milissegundos</translation>
    </message>
    <message>
        <source># the trace has no end: its process died, or writes it still</source>
        <translation># o rastreio não tem fim: o seu processo morreu, ou ainda o está a escrever</translation>
    </message>
    <message>
        <source>%1: files that are written: %2 of %3</source>
        <translation>%1: ficheiros escritos: %2 de %3</translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>%1 bytes</comment>
        <translation>
            <numerusform>%1 byte</numerusform>
            <numerusform>%1 bytes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 block</source>
        <comment>%1 blocks</comment>
        <translation>
            <numerusform>%1 bloco</numerusform>
            <numerusform>%1 blocos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 piece</source>
        <comment>%1 pieces</comment>
        <translation>
            <numerusform>%1 segmento</numerusform>
            <numerusform>%1 segmentos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 checked piece</source>
        <comment>%1 checked pieces</comment>
        <translation>
            <numerusform>%1 segmento verificado</numerusform>
            <numerusform>%1 segmentos verificados</numerusform>
        </translation>
    </message>
    <message>
        <source>names the functions and lines of a crash report, from the debug information of the build that crashed</source>
        <translation>indica as funções e linhas de um relatório de falha, a partir da informação de depuração da compilação que falhou</translation>
    </message>
    <message>
        <source>where debug information lies; may stand several times</source>
        <translation>onde está a informação de depuração; pode ser indicado várias vezes</translation>
    </message>
    <message>
        <source>%1: the dump is cut short or damaged</source>
        <translation>%1: a imagem de memória está truncada ou danificada</translation>
    </message>
    <message>
        <source>%1: is the dump of an unknown kind of machine</source>
        <translation>%1: é a imagem de memória de um tipo de máquina desconhecido</translation>
    </message>
    <message>
        <source>%1: is too large for a report or a dump</source>
        <translation>%1: é demasiado grande para um relatório ou uma imagem de memória</translation>
    </message>
    <message>
        <source>%1: is no folder</source>
        <translation>%1: não é uma pasta</translation>
    </message>
    <message>
        <source>%1 (no build id: not checked)</source>
        <translation>%1 (sem identificador de compilação: não verificado)</translation>
    </message>
    <message>
        <source>no build id; there are the builds %1</source>
        <translation>sem identificador de compilação; há as compilações %1</translation>
    </message>
    <message>
        <source>no build id</source>
        <translation>sem identificador de compilação</translation>
    </message>
    <message>
        <source>%1 crashed, there is %2</source>
        <translation>%1 falhou, existe %2</translation>
    </message>
    <message>
        <source>symbols:</source>
        <translation>informação de depuração:</translation>
    </message>
    <message>
        <source>%1: holds no backtrace, and is no dump</source>
        <translation>%1: não contém pilha de chamadas nem é uma imagem de memória</translation>
    </message>
    <message>
        <source>neither llvm-symbolizer nor addr2line is installed, one of which reads debug information</source>
        <translation>não está instalado nem llvm-symbolizer nem addr2line, um dos quais lê a informação de depuração</translation>
    </message>
    <message>
        <source>%1: %2 cannot read it: %3</source>
        <translation>%1: %2 não consegue lê-lo: %3</translation>
    </message>
    <message>
        <source>%1: its debug information cannot be read</source>
        <translation>%1: a sua informação de depuração não pode ser lida</translation>
    </message>
</context>
</TS>
