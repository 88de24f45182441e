<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_PT" sourcelanguage="en">
<context>
    <name>Gauge</name>
    <message>
        <source>Gauge</source>
        <translation>Mostrador</translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation>&amp;Comprimento</translation>
    </message>
    <message>
        <source>&amp;Temperature</source>
        <translation>&amp;Temperatura</translation>
    </message>
    <message>
        <source>&amp;Angle</source>
        <translation>Â&amp;ngulo</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Unidade</translation>
    </message>
    <message>
        <source>Any unit may follow the number.</source>
        <translation>Qualquer unidade pode seguir-se ao número.</translation>
    </message>
    <message>
        <source>Try gauge --help.</source>
        <translation>Experimente gauge --help.</translation>
    </message>
    <message>
        <source>there is no gauge for %1</source>
        <translation>não há mostrador para %1</translation>
    </message>
    <message>
        <source>Shows a quantity that is typed as people write it.</source>
        <translation>Mostra uma grandeza escrita como as pessoas a escrevem.</translation>
    </message>
    <message>
        <source>quantity</source>
        <translation>grandeza</translation>
    </message>
    <message>
        <source>what the field holds at first</source>
        <translation>o que o campo contém no início</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>mostra esta ajuda</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>natureza</translation>
    </message>
    <message>
        <source>in which the quantity is shown</source>
        <translation>em que a grandeza é mostrada</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>unidade</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>escreve uma imagem da janela e termina</translation>
    </message>
    <message>
        <source>give one quantity, in quotes</source>
        <translation>indique uma só grandeza, entre aspas</translation>
    </message>
    <message>
        <source>the gauge has no unit %1</source>
        <translation>o mostrador não tem a unidade %1</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>não há ecrã para uma janela; --screenshot não precisa de nenhum</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>não é possível escrever %1</translation>
    </message>
</context>
<context>
    <name>Surface</name>
    <message>
        <source>stopped by the user</source>
        <translation>interrompido pelo utilizador</translation>
    </message>
    <message>
        <source>Computing curvatures</source>
        <translation>A calcular curvaturas</translation>
    </message>
    <message>
        <source>Sorting the corners of triangles</source>
        <translation>A ordenar os vértices dos triângulos</translation>
    </message>
    <message>
        <source>Finding neighbours and normals</source>
        <translation>A determinar vizinhos e normais</translation>
    </message>
    <message>
        <source>Smoothing normals</source>
        <translation>A suavizar as normais</translation>
    </message>
    <message>
        <source>%1 copies of %2 are too many points</source>
        <translation>%1 cópias de %2 são demasiados pontos</translation>
    </message>
    <message>
        <source>reading stopped early</source>
        <translation>a leitura parou antes do fim</translation>
    </message>
    <message>
        <source>the content is no surface of this program</source>
        <translation>o conteúdo não é uma superfície deste programa</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>não é possível escrever %1</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 não contém nenhuma superfície</translation>
    </message>
    <message>
        <source>lines with unknown keys, all told: %1</source>
        <translation>linhas com palavras-chave desconhecidas, ao todo: %1</translation>
    </message>
    <message>
        <source>unknown key, line skipped: %1</source>
        <translation>palavra-chave desconhecida, linha ignorada: %1</translation>
    </message>
    <message>
        <source>in less than 2 ms</source>
        <translation>em menos de 2 ms</translation>
    </message>
    <message>
        <source>at %1 MB/s</source>
        <translation>a %1 MB/s</translation>
    </message>
    <message>
        <source>the system starts no threads for the analysis</source>
        <translation>o sistema não inicia threads para a análise</translation>
    </message>
    <message>
        <source>a coordinate must be finite</source>
        <translation>uma coordenada tem de ser finita</translation>
    </message>
    <message>
        <source>there is no such point</source>
        <translation>esse ponto não existe</translation>
    </message>
    <message>
        <source>missing are %1 and %2</source>
        <translation>faltam %1 e %2</translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged: %1 of its %2 bytes of content is lost; the others were checked and are good</source>
        <comment>the file is damaged: %1 of its %2 bytes of content are lost; the others were checked and are good</comment>
        <translation>
            <numerusform>o ficheiro está danificado: perdeu-se %1 dos seus %2 bytes de conteúdo; os outros foram verificados e estão bons</numerusform>
            <numerusform>o ficheiro está danificado: perderam-se %1 dos seus %2 bytes de conteúdo; os outros foram verificados e estão bons</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged, as byte %1 shows; what was read before (%2 byte) may be wrong</source>
        <comment>the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong</comment>
        <translation>
            <numerusform>o ficheiro está danificado, como mostra o byte %1; o que foi lido antes (%2 byte) pode estar errado</numerusform>
            <numerusform>o ficheiro está danificado, como mostra o byte %1; o que foi lido antes (%2 bytes) pode estar errado</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file ends too early, at byte %1; the first %2 byte of content is good</source>
        <comment>the file ends too early, at byte %1; the first %2 bytes of content are good</comment>
        <translation>
            <numerusform>o ficheiro termina cedo demais, no byte %1; o primeiro %2 byte do conteúdo está bom</numerusform>
            <numerusform>o ficheiro termina cedo demais, no byte %1; os primeiros %2 bytes do conteúdo estão bons</numerusform>
        </translation>
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
        <source>%1 line</source>
        <comment>%1 lines</comment>
        <translation>
            <numerusform>%1 linha</numerusform>
            <numerusform>%1 linhas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 data line</source>
        <comment>%1 data lines</comment>
        <translation>
            <numerusform>%1 linha de dados</numerusform>
            <numerusform>%1 linhas de dados</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 open edge</source>
        <comment>%1 open edges</comment>
        <translation>
            <numerusform>%1 aresta livre</numerusform>
            <numerusform>%1 arestas livres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 point</source>
        <comment>%1 points</comment>
        <translation>
            <numerusform>%1 ponto</numerusform>
            <numerusform>%1 pontos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 triangle</source>
        <comment>%1 triangles</comment>
        <translation>
            <numerusform>%1 triângulo</numerusform>
            <numerusform>%1 triângulos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 worker</source>
        <comment>%1 workers</comment>
        <translation>
            <numerusform>%1 thread</numerusform>
            <numerusform>%1 threads</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Tour</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation>não é possível ler %1: %2</translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation>não é possível escrever %1: %2</translation>
    </message>
    <message>
        <source>harmless here: the content is the same</source>
        <translation>inofensivo aqui: o conteúdo é o mesmo</translation>
    </message>
    <message>
        <source>TAKEN FOR GOOD DATA</source>
        <translation>TOMADO POR DADOS BONS</translation>
    </message>
    <message>
        <source>cut short</source>
        <translation>truncado</translation>
    </message>
    <message>
        <source>one bit flipped</source>
        <translation>um bit invertido</translation>
    </message>
    <message>
        <source>sent as text</source>
        <translation>enviado como texto</translation>
    </message>
    <message>
        <source>newer program</source>
        <translation>programa mais novo</translation>
    </message>
    <message>
        <source>Read the scan</source>
        <translation>Ler a digitalização</translation>
    </message>
    <message>
        <source>file</source>
        <translation>ficheiro</translation>
    </message>
    <message>
        <source>holds</source>
        <translation>contém</translation>
    </message>
    <message>
        <source>text</source>
        <translation>texto</translation>
    </message>
    <message>
        <source>%1, %2, read %3</source>
        <translation>%1, %2, lido %3</translation>
    </message>
    <message>
        <source>read %1, %2 of them without geometry</source>
        <translation>lidas %1, %2 delas sem geometria</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 não contém nenhuma superfície</translation>
    </message>
    <message>
        <source>repeated</source>
        <translation>repetido</translation>
    </message>
    <message>
        <source>%1 times, side by side: %2</source>
        <translation>%1 vezes, lado a lado: %2</translation>
    </message>
    <message>
        <source>Measure it (one unit of the file is 1 %1)</source>
        <translation>Medir (uma unidade do ficheiro é 1 %1)</translation>
    </message>
    <message>
        <source>%1 is too large to be measured</source>
        <translation>%1 é demasiado grande para ser medido</translation>
    </message>
    <message>
        <source>width</source>
        <translation>largura</translation>
    </message>
    <message>
        <source>height</source>
        <translation>altura</translation>
    </message>
    <message>
        <source>depth</source>
        <translation>profundidade</translation>
    </message>
    <message>
        <source>surface</source>
        <translation>superfície</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>volume</translation>
    </message>
    <message>
        <source>the surface has %1; its volume is closed over the middle</source>
        <translation>a superfície tem %1; o seu volume é fechado pelo centro</translation>
    </message>
    <message>
        <source>jobs</source>
        <translation>tarefas</translation>
    </message>
    <message>
        <source>time</source>
        <translation>tempo</translation>
    </message>
    <message>
        <source>%1 s of computing in %2 s: %3 processors busy</source>
        <translation>%1 s de cálculo em %2 s: %3 processadores ocupados</translation>
    </message>
    <message>
        <source>mean curvature</source>
        <translation>curvatura média</translation>
    </message>
    <message>
        <source>lowest</source>
        <translation>mínima</translation>
    </message>
    <message>
        <source>5% lie below</source>
        <translation>5% abaixo</translation>
    </message>
    <message>
        <source>median</source>
        <translation>mediana</translation>
    </message>
    <message>
        <source>5% lie above</source>
        <translation>5% acima</translation>
    </message>
    <message>
        <source>highest</source>
        <translation>máxima</translation>
    </message>
    <message>
        <source>Analyse it on %1</source>
        <translation>Analisar com %1</translation>
    </message>
    <message>
        <source>curvatures</source>
        <translation>curvaturas</translation>
    </message>
    <message>
        <source>%1 without a curvature: no triangle of any area</source>
        <translation>%1 sem curvatura: nenhum triângulo com área</translation>
    </message>
    <message>
        <source>Keep it in a project file</source>
        <translation>Guardar num ficheiro de projeto</translation>
    </message>
    <message>
        <source>wrote %1</source>
        <translation>%1 escrito</translation>
    </message>
    <message>
        <source>time of writing</source>
        <translation>escrito em</translation>
    </message>
    <message>
        <source>content</source>
        <translation>conteúdo</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>comprimido</translation>
    </message>
    <message>
        <source>%1, %2% of the content</source>
        <translation>%1, %2% do conteúdo</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>velocidade</translation>
    </message>
    <message>
        <source>written %1, read %2</source>
        <translation>escrito %1, lido %2</translation>
    </message>
    <message>
        <source>compared</source>
        <translation>comparado</translation>
    </message>
    <message>
        <source>all %1 equal</source>
        <translation>%1, tudo igual</translation>
    </message>
    <message>
        <source>DIFFERENT: %1</source>
        <translation>DIFERENTE: %1</translation>
    </message>
    <message>
        <source>libKyr %1: a scan from text to a project file and back</source>
        <translation>libKyr %1: uma digitalização, do texto ao ficheiro de projeto e de volta</translation>
    </message>
    <message>
        <source>What damage looks like (on copies)</source>
        <translation>Como se manifestam os danos (em cópias)</translation>
    </message>
    <message>
        <source>no damaged copy was taken for good data</source>
        <translation>nenhuma cópia danificada foi tomada por dados bons</translation>
    </message>
    <message>
        <source>A DAMAGED COPY WAS TAKEN FOR GOOD</source>
        <translation>UMA CÓPIA DANIFICADA FOI TOMADA POR BOA</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Registo</translation>
    </message>
    <message>
        <source>Everything held.</source>
        <translation>Tudo se confirmou.</translation>
    </message>
    <message>
        <source>SOMETHING DID NOT HOLD.</source>
        <translation>ALGO NÃO SE CONFIRMOU.</translation>
    </message>
    <message>
        <source>cannot write to standard output</source>
        <translation>não é possível escrever na saída padrão</translation>
    </message>
    <message>
        <source>%1; nothing is half written</source>
        <translation>%1; nada ficou meio escrito</translation>
    </message>
    <message>
        <source>out of memory (%1)</source>
        <translation>memória esgotada (%1)</translation>
    </message>
    <message>
        <source>working</source>
        <translation>em curso</translation>
    </message>
    <message>
        <source>the system starts no thread for the analysis</source>
        <translation>o sistema não inicia nenhuma thread para a análise</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>não é possível escrever %1</translation>
    </message>
    <message>
        <source>cannot pack %1</source>
        <translation>não é possível arquivar %1</translation>
    </message>
    <message>
        <source>cannot make a folder in %1 for temporary files</source>
        <translation>não é possível criar em %1 uma pasta para ficheiros temporários</translation>
    </message>
    <message>
        <source>Pack it all</source>
        <translation>Arquivar tudo</translation>
    </message>
    <message>
        <source>Try tour --help.</source>
        <translation>Experimente tour --help.</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3</source>
        <translation>--%1 recebe um número de %2 a %3</translation>
    </message>
    <message>
        <source>the project file would replace %1</source>
        <translation>o ficheiro de projeto substituiria %1</translation>
    </message>
    <message>
        <source>the archive would replace %1</source>
        <translation>o arquivo substituiria %1</translation>
    </message>
    <message>
        <source>Reads a scan, measures it, keeps it in a project file and packs it all.</source>
        <translation>Lê uma digitalização, mede-a, guarda-a num ficheiro de projeto e arquiva tudo.</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>mostra esta ajuda</translation>
    </message>
    <message>
        <source>scan</source>
        <translation>digitalização</translation>
    </message>
    <message>
        <source>an OBJ file</source>
        <translation>um ficheiro OBJ</translation>
    </message>
    <message>
        <source>what one unit of the file is; default mm</source>
        <translation>o que vale uma unidade do ficheiro; por omissão mm</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>unidade</translation>
    </message>
    <message>
        <source>where the project file goes; default here</source>
        <translation>onde fica o ficheiro de projeto; por omissão aqui</translation>
    </message>
    <message>
        <source>directory</source>
        <translation>diretório</translation>
    </message>
    <message>
        <source>where it is all packed as a tar.gz; default beside the project file</source>
        <translation>onde tudo é arquivado em tar.gz; por omissão ao lado do ficheiro de projeto</translation>
    </message>
    <message>
        <source>how often the scan is repeated, side by side; default 1</source>
        <translation>quantas vezes se repete a digitalização, lado a lado; por omissão 1</translation>
    </message>
    <message>
        <source>number</source>
        <translation>número</translation>
    </message>
    <message>
        <source>threads that analyse it; default one per processor</source>
        <translation>threads para a análise; por omissão uma por processador</translation>
    </message>
    <message>
        <source>how often normals are smoothed; default 2</source>
        <translation>quantas vezes se suavizam as normais; por omissão 2</translation>
    </message>
    <message>
        <source>give one OBJ file</source>
        <translation>indique um ficheiro OBJ</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>nenhuma unidade de comprimento se chama %1</translation>
    </message>
    <message>
        <source>saved of it</source>
        <translation>salvo</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, equal to what was written</source>
        <comment>%1 of %2 pieces, equal to what was written</comment>
        <translation>
            <numerusform>%1 de %2 segmento, igual ao que foi escrito</numerusform>
            <numerusform>%1 de %2 segmentos, iguais ao que foi escrito</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, NOT WHAT WAS WRITTEN</source>
        <comment>%1 of %2 pieces, NOT WHAT WAS WRITTEN</comment>
        <translation>
            <numerusform>%1 de %2 segmento, DIFERENTE DO QUE FOI ESCRITO</numerusform>
            <numerusform>%1 de %2 segmentos, DIFERENTES DO QUE FOI ESCRITO</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>Legend of the colours</source>
        <translation>Legenda das cores</translation>
    </message>
    <message>
        <source>Mean curvature, %1: %2</source>
        <translation>Curvatura média, %1: %2</translation>
    </message>
    <message>
        <source>Curvature</source>
        <translation>Curvatura</translation>
    </message>
    <message>
        <source>Mean curvature</source>
        <translation>Curvatura média</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>em %1</translation>
    </message>
    <message>
        <source>ridges</source>
        <translation>cristas</translation>
    </message>
    <message>
        <source>hollows</source>
        <translation>cavidades</translation>
    </message>
    <message>
        <source>Try viewer --help.</source>
        <translation>Experimente viewer --help.</translation>
    </message>
    <message>
        <source>no size: %1; it should look like 1280x800</source>
        <translation>não é um tamanho: %1; deveria ser como 1280x800</translation>
    </message>
    <message>
        <source>Shows a scan, coloured by its curvature.</source>
        <translation>Mostra uma digitalização, colorida segundo a sua curvatura.</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>mostra esta ajuda</translation>
    </message>
    <message>
        <source>file</source>
        <translation>ficheiro</translation>
    </message>
    <message>
        <source>an OBJ file or a project (.kyr)</source>
        <translation>um ficheiro OBJ ou um projeto (.kyr)</translation>
    </message>
    <message>
        <source>what one unit of an OBJ file is; default mm</source>
        <translation>o que vale uma unidade de um ficheiro OBJ; por omissão mm</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>unidade</translation>
    </message>
    <message>
        <source>how often the scan is shown, side by side; default 1</source>
        <translation>quantas vezes se mostra a digitalização, lado a lado; por omissão 1</translation>
    </message>
    <message>
        <source>number</source>
        <translation>número</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>escreve uma imagem da janela e termina</translation>
    </message>
    <message>
        <source>of the window; default 1280x800</source>
        <translation>da janela; por omissão 1280x800</translation>
    </message>
    <message>
        <source>size</source>
        <translation>tamanho</translation>
    </message>
    <message>
        <source>give one file</source>
        <translation>indique um só ficheiro</translation>
    </message>
    <message>
        <source>no number of copies: %1</source>
        <translation>não é um número de cópias: %1</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>nenhuma unidade de comprimento se chama %1</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>não é possível escrever %1</translation>
    </message>
    <message>
        <source>a screenshot needs a file</source>
        <translation>uma captura de ecrã precisa de um ficheiro</translation>
    </message>
    <message>
        <source>Scan viewer</source>
        <translation>Visualizador de digitalizações</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Ficheiro</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Abrir…</translation>
    </message>
    <message>
        <source>&amp;Save picture…</source>
        <translation>&amp;Guardar imagem…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Sair</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Vista</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>A&amp;justar</translation>
    </message>
    <message>
        <source>&amp;Oblique</source>
        <translation>&amp;Oblíqua</translation>
    </message>
    <message>
        <source>F&amp;ront</source>
        <translation>&amp;Frente</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Trás</translation>
    </message>
    <message>
        <source>&amp;Left</source>
        <translation>&amp;Esquerda</translation>
    </message>
    <message>
        <source>Ri&amp;ght</source>
        <translation>&amp;Direita</translation>
    </message>
    <message>
        <source>&amp;Top</source>
        <translation>&amp;Cima</translation>
    </message>
    <message>
        <source>Botto&amp;m</source>
        <translation>&amp;Baixo</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Ajustar</translation>
    </message>
    <message>
        <source>Show all of the scan (F)</source>
        <translation>Mostrar toda a digitalização (F)</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Repor</translation>
    </message>
    <message>
        <source>Back to the first view (Home)</source>
        <translation>Voltar à primeira vista (Home)</translation>
    </message>
    <message>
        <source>Drop a scan here</source>
        <translation>Largue aqui uma digitalização</translation>
    </message>
    <message>
        <source>an OBJ file, or a project (.kyr)</source>
        <translation>um ficheiro OBJ ou um projeto (.kyr)</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Abrir…</translation>
    </message>
    <message>
        <source>Open a scan</source>
        <translation>Abrir uma digitalização</translation>
    </message>
    <message>
        <source>Scans and projects</source>
        <translation>Digitalizações e projetos</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Todos os ficheiros</translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation>Guardar a imagem</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>Não foi possível escrever %1.</translation>
    </message>
    <message>
        <source>%1 was not opened: %2</source>
        <translation>%1 não foi aberto: %2</translation>
    </message>
    <message>
        <source>Opening %1 was aborted.</source>
        <translation>A abertura de %1 foi interrompida.</translation>
    </message>
    <message>
        <source>%1 – Scan viewer</source>
        <translation>%1 – Visualizador de digitalizações</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Mensagem</translation>
    </message>
    <message>
        <source>Put the message away</source>
        <translation>Fechar a mensagem</translation>
    </message>
    <message>
        <source>Project, %1</source>
        <translation>Projeto, %1</translation>
    </message>
    <message>
        <source>Scan, %1</source>
        <translation>Digitalização, %1</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>A ler %1</translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation>A medir</translation>
    </message>
    <message>
        <source>the scan is too large to be measured</source>
        <translation>a digitalização é demasiado grande para ser medida</translation>
    </message>
    <message>
        <source>Preparing the picture</source>
        <translation>A preparar a imagem</translation>
    </message>
    <message>
        <source>the system starts no thread for it</source>
        <translation>o sistema não inicia nenhuma thread para isso</translation>
    </message>
    <message>
        <source>there is not enough memory for this scan</source>
        <translation>não há memória suficiente para esta digitalização</translation>
    </message>
    <message>
        <source>Numbers of the scan</source>
        <translation>Números da digitalização</translation>
    </message>
    <message>
        <source>Unit of length</source>
        <translation>Unidade de comprimento</translation>
    </message>
    <message>
        <source>Unit of length; areas, volumes and curvatures follow</source>
        <translation>Unidade de comprimento; áreas, volumes e curvaturas seguem-na</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Unidade</translation>
    </message>
    <message>
        <source>Surface</source>
        <translation>Superfície</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Pontos</translation>
    </message>
    <message>
        <source>Triangles</source>
        <translation>Triângulos</translation>
    </message>
    <message>
        <source>Open edges</source>
        <translation>Arestas livres</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Dimensões</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Largura</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Altura</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Profundidade</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Área</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Open surface: its volume is closed over its middle.</source>
        <translation>Superfície aberta: o seu volume é fechado pelo centro.</translation>
    </message>
    <message>
        <source>Highest</source>
        <translation>Máxima</translation>
    </message>
    <message>
        <source>5 % lie above</source>
        <translation>5 % acima</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Mediana</translation>
    </message>
    <message>
        <source>5 % lie below</source>
        <translation>5 % abaixo</translation>
    </message>
    <message>
        <source>Lowest</source>
        <translation>Mínima</translation>
    </message>
    <message>
        <source>No scan</source>
        <translation>Nenhuma digitalização</translation>
    </message>
    <message>
        <source>Open one to see its numbers</source>
        <translation>Abra uma para ver os seus números</translation>
    </message>
    <message>
        <source>Drag to turn  ·  Shift-drag to move  ·  Wheel to zoom</source>
        <translation>Arrastar roda  ·  Shift+arrastar move  ·  Roda do rato amplia</translation>
    </message>
    <message>
        <source>Curvature under the mouse</source>
        <translation>Curvatura sob o rato</translation>
    </message>
    <message>
        <source>Progress of the computation</source>
        <translation>Progresso do cálculo</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Interromper</translation>
    </message>
    <message>
        <source>Abort the computation</source>
        <translation>Interromper o cálculo</translation>
    </message>
    <message>
        <source>Stops the computation and keeps what is shown (Esc)</source>
        <translation>Interrompe o cálculo e conserva o que está à vista (Esc)</translation>
    </message>
    <message>
        <source>Curvature here  %1</source>
        <translation>Curvatura aqui  %1</translation>
    </message>
    <message>
        <source>Picture of the scan</source>
        <translation>Imagem da digitalização</translation>
    </message>
    <message>
        <source>Arrow keys turn it, plus and minus come nearer and go away</source>
        <translation>as setas rodam-na, mais e menos aproximam-na e afastam-na</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>não há ecrã para uma janela; --screenshot não precisa de nenhum</translation>
    </message>
</context>
</TS>
