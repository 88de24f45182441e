<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_PT" sourcelanguage="en">
<context>
    <name>KyrApplication</name>
    <message>
        <source>Sheet Forming</source>
        <translation>Conformação de chapa</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Movimento</translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation>Inspeção</translation>
    </message>
    <message>
        <source>Viewer</source>
        <translation>Visualizador</translation>
    </message>
    <message>
        <source>Deformation</source>
        <translation>Deformação</translation>
    </message>
    <message>
        <source>Material Test</source>
        <translation>Ensaio de materiais</translation>
    </message>
    <message>
        <source>Test Rig</source>
        <translation>Bancada de ensaio</translation>
    </message>
    <message>
        <source>Launcher</source>
        <translation>Iniciador</translation>
    </message>
    <message>
        <source>Computing Server</source>
        <translation>Servidor de cálculo</translation>
    </message>
    <message>
        <source>Sensor</source>
        <translation>Sensor</translation>
    </message>
    <message>
        <source>Large Structure</source>
        <translation>Grande estrutura</translation>
    </message>
    <message>
        <source>Production Cell</source>
        <translation>Célula de produção</translation>
    </message>
</context>
<context>
    <name>KyrChangeLog</name>
    <message>
        <source>new %1.</source>
        <translation>novo: %1.</translation>
    </message>
    <message>
        <source>%1 renamed to %2.</source>
        <translation>%1 renomeado para %2.</translation>
    </message>
    <message>
        <source>removed %1.</source>
        <translation>%1 removido.</translation>
    </message>
    <message>
        <source>changed semantics of %1.</source>
        <translation>semântica de %1 alterada.</translation>
    </message>
</context>
<context>
    <name>KyrLibraryHistory</name>
    <message>
        <source>Reports a broken invariant and ends the process.</source>
        <translation>Comunica um invariante violado e termina o processo.</translation>
    </message>
    <message>
        <source>Sorts item9 before item10.</source>
        <translation>Ordena item9 antes de item10.</translation>
    </message>
    <message>
        <source>With its kin for other numbers, the same under every locale.</source>
        <translation>Como as funções afins para outros números, igual em qualquer configuração regional.</translation>
    </message>
    <message>
        <source>On Linux only.</source>
        <translation>Só em Linux.</translation>
    </message>
    <message>
        <source>Finds the next free number of a series of files.</source>
        <translation>Encontra o próximo número livre de uma série de ficheiros.</translation>
    </message>
    <message>
        <source>Gives way when its owner no longer lives.</source>
        <translation>Cede o lugar quando o dono já não existe.</translation>
    </message>
    <message>
        <source>Hands an exception of its work to the thread that waits for it.</source>
        <translation>Entrega uma exceção do seu trabalho à thread que espera por ele.</translation>
    </message>
    <message>
        <source>Tells at which byte a file is damaged or cut short.</source>
        <translation>Indica em que byte um ficheiro está danificado ou truncado.</translation>
    </message>
    <message>
        <source>Bounded in memory by ZippedTarLimits.</source>
        <translation>Limitado em memória por ZippedTarLimits.</translation>
    </message>
    <message>
        <source>libKyr %1: changes of the interface</source>
        <translation>libKyr %1: alterações da interface</translation>
    </message>
    <message>
        <source>Reads and writes quantities as people do.</source>
        <translation>Lê e escreve grandezas como as pessoas o fazem.</translation>
    </message>
</context>
<context>
    <name>Kyr_FileParse</name>
    <message>
        <source>column %1</source>
        <translation>coluna %1</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>linha %1</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>linha %1, coluna %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no pair %3=&quot;...&quot;</source>
        <translation>«%1» não é um par %3=&quot;...&quot;</translation>
    </message>
    <message>
        <source>the line ends too early</source>
        <translation>a linha termina cedo demais</translation>
    </message>
    <message>
        <source>the line is too long</source>
        <translation>a linha é demasiado longa</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>o ficheiro termina a meio desta linha</translation>
    </message>
    <message>
        <source>the file ends</source>
        <translation>o ficheiro termina</translation>
    </message>
    <message>
        <source>the file ends where &quot;%2&quot; is expected</source>
        <translation>o ficheiro termina onde se espera «%2»</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands where &quot;%2&quot; is expected</source>
        <translation>«%1» está onde se espera «%2»</translation>
    </message>
    <message>
        <source>the file cannot be read to its end</source>
        <translation>o ficheiro não pode ser lido até ao fim</translation>
    </message>
    <message>
        <source>a value is missing</source>
        <translation>falta um valor</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no integer</source>
        <translation>«%1» não é um número inteiro</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>«%1» não é um número</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not within %3</source>
        <translation>«%1» não está dentro de %3</translation>
    </message>
</context>
<context>
    <name>Kyr_Quantity</name>
    <message>
        <source>A number is missing.</source>
        <translation>Falta um número.</translation>
    </message>
    <message>
        <source>No number begins here.</source>
        <translation>Aqui não começa nenhum número.</translation>
    </message>
    <message>
        <source>A digit is missing.</source>
        <translation>Falta um algarismo.</translation>
    </message>
    <message>
        <source>%1 may be %2 or %3: write %4 or %5.</source>
        <translation>%1 pode ser %2 ou %3: escreva %4 ou %5.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; separates no groups of three digits here; the decimal separator is &quot;%2&quot;.</source>
        <translation>«%1» não separa aqui grupos de três algarismos; o separador decimal é «%2».</translation>
    </message>
    <message>
        <source>A number has only one decimal separator.</source>
        <translation>Um número só tem um separador decimal.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no fraction.</source>
        <translation>«%1» não é uma fração.</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>O número é demasiado grande.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no unit here; known are %2.</source>
        <translation>«%1» não é aqui uma unidade; são conhecidas %2.</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>Falta uma unidade.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot follow here.</source>
        <translation>«%1» não pode seguir-se aqui.</translation>
    </message>
    <message>
        <source>The smallest value is %1.</source>
        <translation>O menor valor é %1.</translation>
    </message>
    <message>
        <source>The largest value is %1.</source>
        <translation>O maior valor é %1.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no kind, unit and decimals.</source>
        <translation>«%1» não indica natureza, unidade e casas decimais.</translation>
    </message>
    <message>
        <source>The number is too close to zero.</source>
        <translation>O número está demasiado próximo de zero.</translation>
    </message>
    <message>
        <source>Either all parts of a sum have a unit or none has.</source>
        <translation>Ou todas as parcelas de uma soma têm unidade, ou nenhuma tem.</translation>
    </message>
    <message>
        <source>Only one factor may have a unit.</source>
        <translation>Só um fator pode ter unidade.</translation>
    </message>
    <message>
        <source>A divisor may not have a unit.</source>
        <translation>Um divisor não pode ter unidade.</translation>
    </message>
    <message>
        <source>Nothing can be divided by zero.</source>
        <translation>Nada pode ser dividido por zero.</translation>
    </message>
    <message>
        <source>A closing parenthesis is missing.</source>
        <translation>Falta um parêntese de fecho.</translation>
    </message>
    <message>
        <source>There are too many parentheses in each other.</source>
        <translation>Há demasiados parênteses encaixados.</translation>
    </message>
</context>
<context>
    <name>Kyr_Translator</name>
    <message>
        <source>language: english</source>
        <translation>Inglês</translation>
    </message>
    <message>
        <source>language: german</source>
        <translation>Alemão</translation>
    </message>
    <message>
        <source>language: french</source>
        <translation>Francês</translation>
    </message>
    <message>
        <source>language: japanese</source>
        <translation>Japonês</translation>
    </message>
    <message>
        <source>language: chinese</source>
        <translation>Chinês</translation>
    </message>
    <message>
        <source>language: portuguese</source>
        <translation>Português</translation>
    </message>
</context>
<context>
    <name>Kyr_crash</name>
    <message>
        <source>%1 has crashed. The report is %2, the dump is %3.</source>
        <translation>%1 terminou com um erro. O relatório está em %2, a imagem de memória em %3.</translation>
    </message>
    <message>
        <source>%1 has crashed. The report is %2; there is no dump.</source>
        <translation>%1 terminou com um erro. O relatório está em %2; não há imagem de memória.</translation>
    </message>
</context>
<context>
    <name>Kyr_diagnostics</name>
    <message>
        <source>line %1: %2</source>
        <translation>linha %1: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour: %2</source>
        <translation>«%1» não é uma cor: %2</translation>
    </message>
    <message>
        <source>red, green, blue and alpha are numbers from 0 to 255, or together #rrggbbaa</source>
        <translation>vermelho, verde, azul e alfa são números de 0 a 255, ou juntos #rrggbbaa</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no font: %2</source>
        <translation>«%1» não é um tipo de letra: %2</translation>
    </message>
    <message>
        <source>the size is a number of points from 0.1 to 10000</source>
        <translation>o tamanho é um número de pontos de 0.1 a 10000, com ponto decimal</translation>
    </message>
    <message>
        <source>the weight is a number from 1 to 1000, 400 is normal</source>
        <translation>o peso é um número de 1 a 1000; 400 é o normal</translation>
    </message>
    <message>
        <source>behind the weight come italic, underline, strikeout and fixed, each once</source>
        <translation>a seguir ao peso vêm italic, underline, strikeout e fixed, cada um no máximo uma vez</translation>
    </message>
    <message>
        <source>the family is one word, with \_ for each of its blanks</source>
        <translation>a família é uma só palavra, com \_ em vez de cada espaço</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no sound: %2</source>
        <translation>«%1» não é um som: %2</translation>
    </message>
    <message>
        <source>the volume is a number from 0 to 100</source>
        <translation>o volume é um número de 0 a 100</translation>
    </message>
    <message>
        <source>the repetitions are a number from 1 to 1000000, or 0 without an end</source>
        <translation>o número de repetições vai de 1 a 1000000, ou 0 para sem fim</translation>
    </message>
    <message>
        <source>the file is one word, with \_ for each of its blanks</source>
        <translation>o ficheiro é uma só palavra, com \_ em vez de cada espaço</translation>
    </message>
    <message>
        <source>nothing may follow the repetitions</source>
        <translation>nada pode seguir-se ao número de repetições</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 não pode ser escrito: %2</translation>
    </message>
    <message>
        <source>%1 exists already and is not replaced</source>
        <translation>%1 já existe e não é substituído</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>o ficheiro termina a meio desta linha</translation>
    </message>
</context>
<context>
    <name>Kyr_zip_err</name>
    <message>
        <source>invalid file version: %1. the file is newer than the actual program version: %2</source>
        <translation>Versão de ficheiro inválida: %1. O ficheiro é mais recente do que a versão atual do programa: %2</translation>
    </message>
    <message>
        <source>unknown file version</source>
        <translation>versão de ficheiro desconhecida</translation>
    </message>
    <message>
        <source>cannot read zip stream header</source>
        <translation>Não é possível ler o cabeçalho do fluxo zip.</translation>
    </message>
    <message>
        <source>invalid zip stream header</source>
        <translation>Cabeçalho do fluxo zip inválido.</translation>
    </message>
    <message>
        <source>invalid header: the file was transferred by ascii-ftp.
it must be transferred by binary-ftp.</source>
        <translation>Cabeçalho inválido: o ficheiro foi transferido por FTP em modo ASCII.
Tem de ser transferido em modo binário.</translation>
    </message>
</context>
</TS>
