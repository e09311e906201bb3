<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="uk">
<context>
    <name>Menu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Файл</translation>
    </message>
    <message>
        <source>&amp;New file</source>
        <translation>&amp;Новий файл</translation>
    </message>
    <message>
        <source>&amp;Open defaulf file (myChessProblems.cp)</source>
        <translation>&amp;Відкрити типовий файл (myChessProblems.cp)</translation>
    </message>
    <message>
        <source>&amp;Open sample compositions (&amp;sample_problems.cp)</source>
        <translation>&amp;Відкрити зразкові композиції (&amp;sample_problems.cp)</translation>
    </message>
    <message>
        <source>Open file with chess problems (.cp) ...	Ctrl+O</source>
        <translation>Відкрити файл із шаховими задачами (.cp) ...	Ctrl+O</translation>
    </message>
    <message>
        <source>&amp;Save changes	Ctrl + S</source>
        <translation>&amp;Зберегти зміни	Ctrl + S</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Зберегти &amp;як...</translation>
    </message>
    <message>
        <source>&amp;Append problems from another .cp file...</source>
        <translation>&amp;Додати задачі з іншого файлу .cp...</translation>
    </message>
    <message>
        <source>&amp;Remove problems that are present in another .cp file...</source>
        <translation>&amp;Вилучити задачі, наявні в іншому файлі .cp...</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Вихід</translation>
    </message>
    <message>
        <source>&amp;Position</source>
        <translation>&amp;Позиція</translation>
    </message>
    <message>
        <source>Copy	Ctrl+C</source>
        <translation>Копіювати	Ctrl+C</translation>
    </message>
    <message>
        <source>Copy without variants</source>
        <translation>Копіювати без варіантів</translation>
    </message>
    <message>
        <source>Copy without variants or tags</source>
        <translation>Копіювати без варіантів і тегів</translation>
    </message>
    <message>
        <source>Copy FEN code of position	Ctrl+Shift+C</source>
        <translation>Копіювати код FEN позиції	Ctrl+Shift+C</translation>
    </message>
    <message>
        <source>Copy full FEN code of position</source>
        <translation>Копіювати повний код FEN позиції</translation>
    </message>
    <message>
        <source>Paste (position/FEN/moves)	Ctrl+V</source>
        <translation>Вставити (позицію/FEN/ходи)	Ctrl+V</translation>
    </message>
    <message>
        <source>Paste as mirror</source>
        <translation>Вставити дзеркально</translation>
    </message>
    <message>
        <source>Rotate position 90°</source>
        <translation>Повернути позицію на 90°</translation>
    </message>
    <message>
        <source>Swap black and white</source>
        <translation>Поміняти чорних і білих</translation>
    </message>
    <message>
        <source>Shift position left	Ctrl+L</source>
        <translation>Зсунути позицію ліворуч	Ctrl+L</translation>
    </message>
    <message>
        <source>Shift position right	Ctrl+R</source>
        <translation>Зсунути позицію праворуч	Ctrl+R</translation>
    </message>
    <message>
        <source>Shift position up	Ctrl+U</source>
        <translation>Зсунути позицію вгору	Ctrl+U</translation>
    </message>
    <message>
        <source>Shift position down	Ctrl+D</source>
        <translation>Зсунути позицію вниз	Ctrl+D</translation>
    </message>
    <message>
        <source>Copy moves - short notation</source>
        <translation>Копіювати ходи - скорочена нотація</translation>
    </message>
    <message>
        <source>Copy moves - full notation</source>
        <translation>Копіювати ходи - повна нотація</translation>
    </message>
    <message>
        <source>Copy variants - short notation</source>
        <translation>Копіювати варіанти - скорочена нотація</translation>
    </message>
    <message>
        <source>Copy variants - full notation</source>
        <translation>Копіювати варіанти - повна нотація</translation>
    </message>
    <message>
        <source>Switch on/off position setting mode</source>
        <translation>Увімкнути/вимкнути режим розстановки позиції</translation>
    </message>
    <message>
        <source>Increase stipulation (#n)	Click arrow up</source>
        <translation>Збільшити кількість ходів (#n)	Клацніть стрілку вгору</translation>
    </message>
    <message>
        <source>Decrease stipulation (#n)	Click arrow down</source>
        <translation>Зменшити кількість ходів (#n)	Клацніть стрілку вниз</translation>
    </message>
    <message>
        <source>Increase stipulation (#n) by 10	Right click arrow up</source>
        <translation>Збільшити кількість ходів (#n) на 10	Правий клац стрілки вгору</translation>
    </message>
    <message>
        <source>Decrease stipulation (#n) by 10	Right click arrow down</source>
        <translation>Зменшити кількість ходів (#n) на 10	Правий клац стрілки вниз</translation>
    </message>
    <message>
        <source>Undo last change	Ctrl+Z</source>
        <translation>Скасувати останню зміну	Ctrl+Z</translation>
    </message>
    <message>
        <source>Redo last change	Ctrl+Y</source>
        <translation>Повторити останню зміну	Ctrl+Y</translation>
    </message>
    <message>
        <source>P&amp;roblem</source>
        <translation>&amp;Задача</translation>
    </message>
    <message>
        <source>Problem type</source>
        <translation>Тип задачі</translation>
    </message>
    <message>
        <source>Two-,Three-/Moremover</source>
        <translation>Дво-,три-/багатоходівка</translation>
    </message>
    <message>
        <source>Selfmate</source>
        <translation>Самомат</translation>
    </message>
    <message>
        <source>Helpmate</source>
        <translation>Кооперативний мат</translation>
    </message>
    <message>
        <source>&amp;Solve problem	F5</source>
        <translation>&amp;Розв'язати задачу	F5</translation>
    </message>
    <message>
        <source>Find &amp;all solutions(right click on Start button)	Shift+F5</source>
        <translation>Знайти &amp;всі розв'язки(правий клац на кнопці Старт)	Shift+F5</translation>
    </message>
    <message>
        <source>Find best defence for &amp;black	F5</source>
        <translation>Знайти найкращий захист &amp;чорних	F5</translation>
    </message>
    <message>
        <source>Find best defence for black - more &amp;thorough search	right mouseclick</source>
        <translation>Знайти найкращий захист чорних - &amp;ретельніший пошук	правий клац</translation>
    </message>
    <message>
        <source>&amp;Stop solving</source>
        <translation>&amp;Зупинити розв'язування</translation>
    </message>
    <message>
        <source>Solve and show whole main &amp;variant	Alt+F5 or middle-click</source>
        <translation>Розв'язати й показати весь головний &amp;варіант	Alt+F5 або середній клац</translation>
    </message>
    <message>
        <source>&amp;Pause (right click)</source>
        <translation>&amp;Пауза (правий клац)</translation>
    </message>
    <message>
        <source>&amp;Pause one thread (right click + ctrl)</source>
        <translation>&amp;Пауза одного потоку (правий клац + ctrl)</translation>
    </message>
    <message>
        <source>&amp;Resume solving</source>
        <translation>&amp;Продовжити розв'язування</translation>
    </message>
    <message>
        <source>&amp;Move back</source>
        <translation>&amp;Хід назад</translation>
    </message>
    <message>
        <source>Re&amp;do move</source>
        <translation>&amp;Повторити хід</translation>
    </message>
    <message>
        <source>Add/edit &amp;comment to last move	right mouseclick</source>
        <translation>Додати/змінити &amp;коментар до останнього ходу	правий клац</translation>
    </message>
    <message>
        <source>&amp;Next problem	Ctrl+Shift+Right arrow</source>
        <translation>&amp;Наступна задача	Ctrl+Shift+Стрілка праворуч</translation>
    </message>
    <message>
        <source>&amp;Previous problem	Left arrow</source>
        <translation>&amp;Попередня задача	Стрілка ліворуч</translation>
    </message>
    <message>
        <source>&amp;New problem	Ctrl+N</source>
        <translation>&amp;Нова задача	Ctrl+N</translation>
    </message>
    <message>
        <source>Go to &amp;first problem	Ctrl+Home</source>
        <translation>Перейти до &amp;першої задачі	Ctrl+Home</translation>
    </message>
    <message>
        <source>Go to &amp;last problem	Ctrl+End</source>
        <translation>Перейти до &amp;останньої задачі	Ctrl+End</translation>
    </message>
    <message>
        <source>Go to previously viewed problem	Ctrl Minus</source>
        <translation>Перейти до попередньо переглянутої задачі	Ctrl Minus</translation>
    </message>
    <message>
        <source>Return from Ctrl-Minus	Ctrl Plus</source>
        <translation>Повернутися з Ctrl-Minus	Ctrl Plus</translation>
    </message>
    <message>
        <source>Add tag to the problem...	Ctrl+T</source>
        <translation>Додати тег до задачі...	Ctrl+T</translation>
    </message>
    <message>
        <source>Remove tag from current problem...	Ctrl+Shift+T</source>
        <translation>Вилучити тег із поточної задачі...	Ctrl+Shift+T</translation>
    </message>
    <message>
        <source>Append set of tags from other .cp file...</source>
        <translation>Додати набір тегів з іншого файлу .cp...</translation>
    </message>
    <message>
        <source>Find problem...	Ctrl+F</source>
        <translation>Знайти задачу...	Ctrl+F</translation>
    </message>
    <message>
        <source>Find next	F3</source>
        <translation>Знайти наступну	F3</translation>
    </message>
    <message>
        <source>Find previous	Shift+F3</source>
        <translation>Знайти попередню	Shift+F3</translation>
    </message>
    <message>
        <source>Select problem number...	Ctrl+G</source>
        <translation>Вибрати номер задачі...	Ctrl+G</translation>
    </message>
    <message>
        <source>Select problem from list...	Ctrl+Shift+G</source>
        <translation>Вибрати задачу зі списку...	Ctrl+Shift+G</translation>
    </message>
    <message>
        <source>Find similar positions</source>
        <translation>Знайти схожі позиції</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Вигляд</translation>
    </message>
    <message>
        <source>&amp;Rotate chessboard view</source>
        <translation>&amp;Повернути шахівницю</translation>
    </message>
    <message>
        <source>&amp;Enlarge/minimize progress information area</source>
        <translation>&amp;Збільшити/зменшити область відомостей про поступ</translation>
    </message>
    <message>
        <source>Var&amp;iant</source>
        <translation>Ва&amp;ріант</translation>
    </message>
    <message>
        <source>Save moves as main variant</source>
        <translation>Зберегти ходи як головний варіант</translation>
    </message>
    <message>
        <source>Save moves as variant...</source>
        <translation>Зберегти ходи як варіант...</translation>
    </message>
    <message>
        <source>Show main variant</source>
        <translation>Показати головний варіант</translation>
    </message>
    <message>
        <source>Show variant...</source>
        <translation>Показати варіант...</translation>
    </message>
    <message>
        <source>Animate main variant</source>
        <translation>Анімувати головний варіант</translation>
    </message>
    <message>
        <source>Animate variant...</source>
        <translation>Анімувати варіант...</translation>
    </message>
    <message>
        <source>Stop variant animation</source>
        <translation>Зупинити анімацію варіанту</translation>
    </message>
    <message>
        <source>Remove variant...</source>
        <translation>Вилучити варіант...</translation>
    </message>
    <message>
        <source>&amp;Advanced</source>
        <translation>&amp;Додатково</translation>
    </message>
    <message>
        <source>Priori&amp;ty</source>
        <translation>Пріори&amp;тет</translation>
    </message>
    <message>
        <source>&amp;High</source>
        <translation>&amp;Високий</translation>
    </message>
    <message>
        <source>&amp;Above normal</source>
        <translation>&amp;Вище звичайного</translation>
    </message>
    <message>
        <source>&amp;Normal</source>
        <translation>&amp;Звичайний</translation>
    </message>
    <message>
        <source>&amp;Below normal (recommended)</source>
        <translation>&amp;Нижче звичайного (рекомендовано)</translation>
    </message>
    <message>
        <source>&amp;Low</source>
        <translation>&amp;Низький</translation>
    </message>
    <message>
        <source>Processor &amp;affinity</source>
        <translation>&amp;Прив'язка до процесорів</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Довідка</translation>
    </message>
    <message>
        <source>Open &amp;manual (quick start)</source>
        <translation>Відкрити &amp;посібник (швидкий старт)</translation>
    </message>
    <message>
        <source>&amp;Open readme.txt</source>
        <translation>&amp;Відкрити readme.txt</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Про програму</translation>
    </message>
    <message>
        <source>&amp;Threads...</source>
        <translation>&amp;Потоки...</translation>
    </message>
</context>
</TS>
