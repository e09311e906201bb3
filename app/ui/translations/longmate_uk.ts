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
    <message>
        <source>&amp;Information about position	Ctrl+I</source>
        <translation>&amp;Інформація про позицію	Ctrl+I</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Параметри</translation>
    </message>
    <message>
        <source>&amp;Precalculate data (Nalimov tablebases) for this position type</source>
        <translation>&amp;Обчислити дані (таблиці Налімова) для цього типу позиції</translation>
    </message>
    <message>
        <source>Check if FEN codes from selected file (any text format) exist in the current file...</source>
        <translation>Перевірити, чи коди FEN з вибраного файлу (будь-який текстовий формат) є в поточному файлі...</translation>
    </message>
    <message>
        <source>Clear temporary register of current problem</source>
        <translation>Очистити тимчасовий реєстр поточної задачі</translation>
    </message>
    <message>
        <source>Close program</source>
        <translation>Закрити програму</translation>
    </message>
    <message>
        <source>Copy address to clipboard</source>
        <translation>Копіювати адресу в буфер обміну</translation>
    </message>
    <message>
        <source>Copy diagram</source>
        <translation>Копіювати діаграму</translation>
    </message>
    <message>
        <source>Display &amp;id of current position and copy it to clipboard</source>
        <translation>Показати &amp;ідентифікатор поточної позиції та скопіювати його в буфер обміну</translation>
    </message>
    <message>
        <source>Display current status of global register (precalculated data in memory)</source>
        <translation>Показати стан глобального реєстру (обчислені дані в пам'яті)</translation>
    </message>
    <message>
        <source>Edit problem description...</source>
        <translation>Редагувати опис задачі...</translation>
    </message>
    <message>
        <source>Next position of this type	Shift+Ctrl+N</source>
        <translation>Наступна позиція цього типу	Shift+Ctrl+N</translation>
    </message>
    <message>
        <source>Open page in default browser</source>
        <translation>Відкрити сторінку в типовому браузері</translation>
    </message>
    <message>
        <source>Paste position of this type by index</source>
        <translation>Вставити позицію цього типу за індексом</translation>
    </message>
    <message>
        <source>Previous position of this type	Shift+Ctrl+P</source>
        <translation>Попередня позиція цього типу	Shift+Ctrl+P</translation>
    </message>
    <message>
        <source>Read temporary register from file...</source>
        <translation>Прочитати тимчасовий реєстр з файлу...</translation>
    </message>
    <message>
        <source>Read temporary register of current problem from default file</source>
        <translation>Прочитати тимчасовий реєстр поточної задачі з типового файлу</translation>
    </message>
    <message>
        <source>Recent files</source>
        <translation>Останні файли</translation>
    </message>
    <message>
        <source>Run quick regression test (solve single problem for no longer than 64 sec.)</source>
        <translation>Запустити швидкий регресійний тест (кожна задача не довше 64 с)</translation>
    </message>
    <message>
        <source>Run regression test (solve all problems in the current file)</source>
        <translation>Запустити регресійний тест (розв'язати всі задачі поточного файлу)</translation>
    </message>
    <message>
        <source>Save temporary register of current problem</source>
        <translation>Зберегти тимчасовий реєстр поточної задачі</translation>
    </message>
    <message>
        <source>Save temporary register of current problem as...</source>
        <translation>Зберегти тимчасовий реєстр поточної задачі як...</translation>
    </message>
    <message>
        <source>Select &amp;heuristics and find all solutions	Shift+Ctrl+F5</source>
        <translation>Вибрати &amp;евристики та знайти всі розв'язки	Shift+Ctrl+F5</translation>
    </message>
    <message>
        <source>Select &amp;heuristics and find solution	Ctrl+F5</source>
        <translation>Вибрати &amp;евристики та знайти розв'язок	Ctrl+F5</translation>
    </message>
    <message>
        <source>Show &amp;max #n for positions of this type + next position	Ctrl+M</source>
        <translation>Показати &amp;макс. #n для позицій цього типу + наступна позиція	Ctrl+M</translation>
    </message>
    <message>
        <source>Show max #n for positions of this type - previous position	Ctrl+M</source>
        <translation>Показати макс. #n для позицій цього типу - попередня позиція	Ctrl+M</translation>
    </message>
    <message>
        <source>Show program</source>
        <translation>Показати програму</translation>
    </message>
    <message>
        <source>Skip analysis of current move and go to the &amp;next one</source>
        <translation>Пропустити аналіз поточного ходу й перейти до &amp;наступного</translation>
    </message>
    <message>
        <source>Sort &amp;indications...	Ctrl+W</source>
        <translation>Вказівки &amp;сортування...	Ctrl+W</translation>
    </message>
    <message>
        <source>Verify correctness of generated precalculated data (Nalimov) for this position type</source>
        <translation>Перевірити правильність згенерованих даних (Налімов) для цього типу позиції</translation>
    </message>
    <message>
        <source>Verify correctness of partially generated precalculated data for this position type</source>
        <translation>Перевірити правильність частково згенерованих даних для цього типу позиції</translation>
    </message>
    <message>
        <source>Verify files of precalulcated data (global register) on disk</source>
        <translation>Перевірити файли обчислених даних (глобальний реєстр) на диску</translation>
    </message>
    <message>
        <source>Verify files of precalulcated data on disk - resume from cur.pos.type</source>
        <translation>Перевірити файли обчислених даних на диску - продовжити з поточного типу позиції</translation>
    </message>
    <message>
        <source>Add/edit comment to to this move</source>
        <translation>Додати/змінити коментар до цього ходу</translation>
    </message>
    <message>
        <source>Rename this variant...</source>
        <translation>Перейменувати варіант...</translation>
    </message>
    <message>
        <source>Copy position to clipboard</source>
        <translation>Копіювати позицію в буфер обміну</translation>
    </message>
    <message>
        <source>Copy FEN of the position to clipboard</source>
        <translation>Копіювати FEN позиції в буфер обміну</translation>
    </message>
    <message>
        <source>Display position in new instance of program</source>
        <translation>Показати позицію в новому вікні програми</translation>
    </message>
    <message>
        <source>Save as main variant</source>
        <translation>Зберегти як головний варіант</translation>
    </message>
    <message>
        <source>Save variant as...</source>
        <translation>Зберегти варіант як...</translation>
    </message>
    <message>
        <source>Animate main variant (move by move)</source>
        <translation>Анімувати головний варіант (хід за ходом)</translation>
    </message>
    <message>
        <source>Stop animating variant</source>
        <translation>Зупинити анімацію варіанту</translation>
    </message>
    <message>
        <source>Shift current move to be analyzed as the last one</source>
        <translation>Перемістити поточний хід в кінець аналізу</translation>
    </message>
    <message>
        <source>Swap order of analysis with the next move</source>
        <translation>Поміняти порядок аналізу з наступним ходом</translation>
    </message>
    <message>
        <source>Skip to analysis of next move</source>
        <translation>Перейти до аналізу наступного ходу</translation>
    </message>
</context>
<context>
    <name>Window</name>
    <message>
        <source> (paused)</source>
        <translation> (призупинено)</translation>
    </message>
    <message>
        <source>Append problems</source>
        <translation>Додати задачі</translation>
    </message>
    <message>
        <source>Bishop</source>
        <translation>Слон</translation>
    </message>
    <message>
        <source>Cannot open the page %1.</source>
        <translation>Не вдається відкрити сторінку %1.</translation>
    </message>
    <message>
        <source>Chess problems (*.cp);;Problem solver text (*.pop *.txt);;EPD (*.epd);;FEN list (*.fen);;All files (*)</source>
        <translation>Шахові задачі (*.cp);;Текст програми-розв'язувача (*.pop *.txt);;EPD (*.epd);;Список FEN (*.fen);;Усі файли (*)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Очистити</translation>
    </message>
    <message>
        <source>Click at the bottom/top of icon to decrease/increase number of engine threads (applies to 1st move)</source>
        <translation>Клацніть унизу/вгорі значка, щоб зменшити/збільшити кількість потоків рушія (стосується 1-го ходу)</translation>
    </message>
    <message>
        <source>Click at the top/bottom to increase/decrease number of moves (stipulation) in pos.setting mode</source>
        <translation>Клацніть угорі/внизу, щоб збільшити/зменшити кількість ходів (умову) в режимі встановлення позиції</translation>
    </message>
    <message>
        <source>Click to select another problem (right click: list with problem descriptions)</source>
        <translation>Клацніть, щоб вибрати іншу задачу (правий клік: список з описами задач)</translation>
    </message>
    <message>
        <source>Go to first problem</source>
        <translation>Перейти до першої задачі</translation>
    </message>
    <message>
        <source>Go to last problem</source>
        <translation>Перейти до останньої задачі</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Інформація</translation>
    </message>
    <message>
        <source>Keys: </source>
        <translation>Ключі: </translation>
    </message>
    <message>
        <source>Knight</source>
        <translation>Кінь</translation>
    </message>
    <message>
        <source>Longmate: a solver of long direct mates.</source>
        <translation>Longmate: розв'язувач довгих прямих матів.</translation>
    </message>
    <message>
        <source>Mate search result</source>
        <translation>Результат пошуку мату</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Новий файл</translation>
    </message>
    <message>
        <source>Next problem</source>
        <translation>Наступна задача</translation>
    </message>
    <message>
        <source>No problem %1.</source>
        <translation>Немає задачі %1.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Відкрити</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Пауза</translation>
    </message>
    <message>
        <source>Previous problem</source>
        <translation>Попередня задача</translation>
    </message>
    <message>
        <source>Problem number:</source>
        <translation>Номер задачі:</translation>
    </message>
    <message>
        <source>Problems appended: %1.</source>
        <translation>Додано задач: %1.</translation>
    </message>
    <message>
        <source>Problems removed: %1.</source>
        <translation>Вилучено задач: %1.</translation>
    </message>
    <message>
        <source>Queen</source>
        <translation>Ферзь</translation>
    </message>
    <message>
        <source>Remove problems</source>
        <translation>Вилучити задачі</translation>
    </message>
    <message>
        <source>Rook</source>
        <translation>Тура</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Зберегти як</translation>
    </message>
    <message>
        <source>Select problem from list</source>
        <translation>Вибрати задачу зі списку</translation>
    </message>
    <message>
        <source>Select problem number</source>
        <translation>Вибрати номер задачі</translation>
    </message>
    <message>
        <source>Set position</source>
        <translation>Встановити позицію</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Старт</translation>
    </message>
    <message>
        <source>Start/stop (right click: find all solutions/pause; +Ctrl: display heuristics selection dialog)</source>
        <translation>Старт/стоп (правий клік: знайти всі розв'язки/пауза; +Ctrl: вікно вибору евристик)</translation>
    </message>
    <message>
        <source>Start/stop position setting</source>
        <translation>Почати/закінчити встановлення позиції</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Стоп</translation>
    </message>
    <message>
        <source>Stop solving before another file is opened.</source>
        <translation>Зупиніть розв'язування, перш ніж відкрити інший файл.</translation>
    </message>
    <message>
        <source>The position cannot be shifted: a piece would leave the board.</source>
        <translation>Позицію не можна зсунути: фігура вийшла б за межі дошки.</translation>
    </message>
    <message>
        <source>The problems have been changed. Save changes to file?</source>
        <translation>Задачі змінено. Зберегти зміни у файлі?</translation>
    </message>
    <message>
        <source>Unable to Set Tray Icon</source>
        <translation>Не вдається встановити значок в області сповіщень</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Попередження</translation>
    </message>
    <message>
        <source>Change description. You can use links to Pdb/Yacpdb/Meson/Albrecht/Gameknot/chessStar, e.g. Y123</source>
        <translation>Змінити опис. Можна використовувати посилання на Pdb/Yacpdb/Meson/Albrecht/Gameknot/chessStar, напр. Y123</translation>
    </message>
    <message>
        <source>Move back (right click: move back a few moves)</source>
        <translation>Хід назад (правий клік: кілька ходів назад)</translation>
    </message>
    <message>
        <source>Redo move (right click: redo a few moves)</source>
        <translation>Повторити хід (правий клік: повторити кілька ходів)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Зберегти</translation>
    </message>
    <message>
        <source>Save changes to file</source>
        <translation>Зберегти зміни у файлі</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Повернути</translation>
    </message>
    <message>
        <source>Rotate chessboard view</source>
        <translation>Повернути вигляд шахівниці</translation>
    </message>
    <message>
        <source>Improper FEN code</source>
        <translation>Неправильний код FEN</translation>
    </message>
    <message>
        <source>Illegal number of kings.</source>
        <translation>Неприпустима кількість королів.</translation>
    </message>
    <message>
        <source>Pawns cannot occupy 1st nor 8th line of the chessboard.</source>
        <translation>Пішаки не можуть стояти на 1-й чи 8-й горизонталі шахівниці.</translation>
    </message>
    <message>
        <source>Both kings attacked.</source>
        <translation>Обидва королі під боєм.</translation>
    </message>
    <message>
        <source>Invalid position: Black king cannot be checked in starting position.</source>
        <translation>Неправильна позиція: чорний король не може бути під шахом у початковій позиції.</translation>
    </message>
    <message>
        <source>Save moves as variant</source>
        <translation>Зберегти ходи як варіант</translation>
    </message>
    <message>
        <source>Name of the variant:</source>
        <translation>Назва варіанту:</translation>
    </message>
    <message>
        <source>Show variant</source>
        <translation>Показати варіант</translation>
    </message>
    <message>
        <source>Animate variant</source>
        <translation>Анімувати варіант</translation>
    </message>
    <message>
        <source>Remove variant</source>
        <translation>Видалити варіант</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Коментар</translation>
    </message>
    <message>
        <source>Comment to the last move:</source>
        <translation>Коментар до останнього ходу:</translation>
    </message>
    <message>
        <source>Rename this variant</source>
        <translation>Перейменувати варіант</translation>
    </message>
    <message>
        <source>The problem has no stored variants.</source>
        <translation>Задача не має збережених варіантів.</translation>
    </message>
    <message>
        <source>Main variant: </source>
        <translation>Головний варіант: </translation>
    </message>
    <message>
        <source>Play the moves of the variant first.</source>
        <translation>Спочатку зіграйте ходи варіанту.</translation>
    </message>
    <message>
        <source>Add tag to the problem</source>
        <translation>Додати тег до задачі</translation>
    </message>
    <message>
        <source>Tag:</source>
        <translation>Тег:</translation>
    </message>
    <message>
        <source>The problem has no tags.</source>
        <translation>Задача не має тегів.</translation>
    </message>
    <message>
        <source>Remove tag from current problem</source>
        <translation>Видалити тег з поточної задачі</translation>
    </message>
    <message>
        <source>Edit problem description</source>
        <translation>Змінити опис задачі</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Опис:</translation>
    </message>
    <message>
        <source>The problem shown has changed.</source>
        <translation>Показана задача змінилася.</translation>
    </message>
    <message>
        <source>The problem is being solved: its sort indications stay as they are.</source>
        <translation>Задача розв'язується: її підказки сортування залишаються без змін.</translation>
    </message>
    <message>
        <source>A search is running.</source>
        <translation>Триває пошук.</translation>
    </message>
    <message>
        <source>Problem solving is pending - search by heuristics is unavailable until solving is complete.</source>
        <translation>Триває розв'язування задачі - пошук за евристиками недоступний до його завершення.</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Питання</translation>
    </message>
    <message>
        <source>Search by heuristics is selected - such search may be time-consuming. Do you want to continue?</source>
        <translation>Вибрано пошук за евристиками - він може тривати довго. Продовжити?</translation>
    </message>
    <message>
        <source>The search was not started.</source>
        <translation>Пошук не розпочато.</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Зупинити</translation>
    </message>
    <message>
        <source>Search by heuristics</source>
        <translation>Пошук за евристиками</translation>
    </message>
    <message>
        <source>Problem %1 of %2 that match criteria</source>
        <translation>Задача %1 з %2, що відповідають критеріям</translation>
    </message>
    <message>
        <source>Solution tree: </source>
        <translation>Дерево розв'язку: </translation>
    </message>
    <message>
        <source>Building the solution tree...</source>
        <translation>Побудова дерева розв'язку...</translation>
    </message>
    <message>
        <source>No solution: there is no tree to show.</source>
        <translation>Немає розв'язку: немає дерева для показу.</translation>
    </message>
    <message>
        <source>Play White's move first, within the stipulation.</source>
        <translation>Спочатку зіграйте хід білих у межах умови.</translation>
    </message>
    <message>
        <source>Best defence: </source>
        <translation>Найкращий захист: </translation>
    </message>
    <message>
        <source>Readme</source>
        <translation>Readme</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Посібник</translation>
    </message>
    <message>
        <source>Threads</source>
        <translation>Потоки</translation>
    </message>
    <message>
        <source>Threads of the next solve: T, or T^L for T threads on each of L levels (up to T^L threads at once; 1..64 each):</source>
        <translation>Потоки наступного розв'язування: T або T^L для T потоків на кожному з L рівнів (до T^L потоків одночасно; кожне число 1..64):</translation>
    </message>
    <message>
        <source>Sort indications</source>
        <translation>Підказки сортування</translation>
    </message>
    <message>
        <source>White moves to be analyzed first, separated by commas (~ in front: move not wanted):</source>
        <translation>Ходи білих, що аналізуються першими, через кому (~ на початку: небажаний хід):</translation>
    </message>
    <message>
        <source>Use main variant as sort indications</source>
        <translation>Використовувати головний варіант як підказки сортування</translation>
    </message>
    <message>
        <source>Find problem</source>
        <translation>Знайти задачу</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Знайти</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Очистити</translation>
    </message>
    <message>
        <source>Search in problem description</source>
        <translation>Шукати в описі задачі</translation>
    </message>
    <message>
        <source>Case sensitive</source>
        <translation>Враховувати регістр</translation>
    </message>
    <message>
        <source>Regular expression</source>
        <translation>Регулярний вираз</translation>
    </message>
    <message>
        <source>Mate in (stipulation):</source>
        <translation>Мат за (умова):</translation>
    </message>
    <message>
        <source>from</source>
        <translation>від</translation>
    </message>
    <message>
        <source>to</source>
        <translation>до</translation>
    </message>
    <message>
        <source>Search by FEN code:</source>
        <translation>Шукати за кодом FEN:</translation>
    </message>
    <message>
        <source>Search by tag:</source>
        <translation>Шукати за тегом:</translation>
    </message>
    <message>
        <source>Only when black king on the edge</source>
        <translation>Лише коли чорний король на краю</translation>
    </message>
    <message>
        <source>Only unsolved problems</source>
        <translation>Лише нерозв'язані задачі</translation>
    </message>
    <message>
        <source>Search by heuristics:</source>
        <translation>Шукати за евристиками:</translation>
    </message>
    <message>
        <source>Incl.relaxed heuristics:</source>
        <translation>Разом з послабленими евристиками:</translation>
    </message>
    <message>
        <source>Only with forced SafeMode</source>
        <translation>Лише з примусовим SafeMode</translation>
    </message>
    <message>
        <source>Problems with tags appended: %1.</source>
        <translation>Задачі з доданими тегами: %1.</translation>
    </message>
    <message>
        <source>without other heuristics</source>
        <translation>без інших евристик</translation>
    </message>
    <message>
        <source>with other heuristics</source>
        <translation>з іншими евристиками</translation>
    </message>
    <message>
        <source>partially with other heuristics</source>
        <translation>частково з іншими евристиками</translation>
    </message>
    <message>
        <source>Num.of pieces on board:</source>
        <translation>Кількість фігур на дошці:</translation>
    </message>
    <message>
        <source>including white/black pieces:</source>
        <translation>з них білих/чорних фігур:</translation>
    </message>
    <message>
        <source>Num.of figures on board:</source>
        <translation>Кількість фігур (без пішаків):</translation>
    </message>
    <message>
        <source>including white/black figures:</source>
        <translation>з них білих/чорних:</translation>
    </message>
    <message>
        <source>Number of major figures:</source>
        <translation>Кількість важких фігур:</translation>
    </message>
    <message>
        <source>incl.white/black major figures:</source>
        <translation>з них білих/чорних важких:</translation>
    </message>
    <message>
        <source>Number of pawns:</source>
        <translation>Кількість пішаків:</translation>
    </message>
    <message>
        <source>Including white/black pawns:</source>
        <translation>з них білих/чорних пішаків:</translation>
    </message>
    <message>
        <source>white</source>
        <translation>білі</translation>
    </message>
    <message>
        <source>black</source>
        <translation>чорні</translation>
    </message>
    <message>
        <source>No problem found that matches search criteria</source>
        <translation>Не знайдено задачі, що відповідає критеріям</translation>
    </message>
    <message>
        <source>Only similar positions found</source>
        <translation>Знайдено лише схожі позиції</translation>
    </message>
    <message>
        <source>Improper FEN code.</source>
        <translation>Неправильний код FEN.</translation>
    </message>
    <message>
        <source>Improper number of moves</source>
        <translation>Неправильна кількість ходів</translation>
    </message>
    <message>
        <source>Improper number of pieces on chessboard.</source>
        <translation>Неправильна кількість фігур на дошці.</translation>
    </message>
    <message>
        <source>Improper number of white pieces on chessboard.</source>
        <translation>Неправильна кількість білих фігур на дошці.</translation>
    </message>
    <message>
        <source>Improper number of black pieces on chessboard.</source>
        <translation>Неправильна кількість чорних фігур на дошці.</translation>
    </message>
    <message>
        <source>Improper number of figures on chessboard.</source>
        <translation>Неправильна кількість фігур (без пішаків) на дошці.</translation>
    </message>
    <message>
        <source>Improper number of white figures on chessboard.</source>
        <translation>Неправильна кількість білих фігур (без пішаків) на дошці.</translation>
    </message>
    <message>
        <source>Improper number of black figures on chessboard.</source>
        <translation>Неправильна кількість чорних фігур (без пішаків) на дошці.</translation>
    </message>
    <message>
        <source>Improper number of major figures on chessboard.</source>
        <translation>Неправильна кількість важких фігур на дошці.</translation>
    </message>
    <message>
        <source>Improper number of white major figures.</source>
        <translation>Неправильна кількість білих важких фігур.</translation>
    </message>
    <message>
        <source>Improper number of black major figures.</source>
        <translation>Неправильна кількість чорних важких фігур.</translation>
    </message>
    <message>
        <source>Improper number of pawns on chessboard.</source>
        <translation>Неправильна кількість пішаків на дошці.</translation>
    </message>
    <message>
        <source>Improper number of white pawns on chessboard.</source>
        <translation>Неправильна кількість білих пішаків на дошці.</translation>
    </message>
    <message>
        <source>Improper number of black pawns on chessboard.</source>
        <translation>Неправильна кількість чорних пішаків на дошці.</translation>
    </message>
    <message>
        <source>Program options</source>
        <translation>Параметри програми</translation>
    </message>
    <message>
        <source>Levels of analysis with solutions downloaded from %1</source>
        <translation>Кількість рівнів аналізу з розв'язками, завантаженими з %1</translation>
    </message>
    <message>
        <source>Add repeated positions to temporary data</source>
        <translation>Додавати повторені позиції до тимчасових даних</translation>
    </message>
    <message>
        <source>Minimize program to notification area (sys.tray)</source>
        <translation>Згортати програму в область сповіщень (трей)</translation>
    </message>
    <message>
        <source>Invalid number of levels of analysis with solutions dowanloaded from</source>
        <translation>Неправильна кількість рівнів аналізу з розв'язками, завантаженими з</translation>
    </message>
    <message>
        <source>Heuristics selection</source>
        <translation>Вибір евристик</translation>
    </message>
    <message>
        <source>Automatic choice for this position:</source>
        <translation>Автоматичний вибір для цієї позиції:</translation>
    </message>
    <message>
        <source>Choose heuristics automatically</source>
        <translation>Вибирати евристики автоматично</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Показати</translation>
    </message>
    <message>
        <source>Pass without heuristics (pass 2)</source>
        <translation>Прохід без евристик (прохід 2)</translation>
    </message>
    <message>
        <source>Yes (quick mode)</source>
        <translation>Так (швидкий режим)</translation>
    </message>
    <message>
        <source>No (safe mode)</source>
        <translation>Ні (безпечний режим)</translation>
    </message>
    <message>
        <source>Heuristic</source>
        <translation>Евристика</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Параметри</translation>
    </message>
    <message>
        <source>no pass with heuristics</source>
        <translation>немає проходу з евристиками</translation>
    </message>
    <message>
        <source>Temp.reg.: %1 (doubtful %2)</source>
        <translation>Тимч.реєстр: %1 (сумнівних %2)</translation>
    </message>
    <message>
        <source>Folder: %1</source>
        <translation>Тека: %1</translation>
    </message>
    <message>
        <source>Memory quota: %1 MB</source>
        <translation>Ліміт пам'яті: %1 МБ</translation>
    </message>
    <message>
        <source>Loaded: %1 tables, %2 KB</source>
        <translation>Завантажено: %1 таблиць, %2 КБ</translation>
    </message>
    <message>
        <source>Tables on disk: %1</source>
        <translation>Таблиці на диску: %1</translation>
    </message>
    <message>
        <source>%1: %2 positions checked, %3 wrong, %4 with a missing table</source>
        <translation>%1: перевірено %2 позицій, помилкових %3, з відсутньою таблицею %4</translation>
    </message>
    <message>
        <source>%1: no table</source>
        <translation>%1: немає таблиці</translation>
    </message>
    <message>
        <source>Tables checked: %1, with wrong values: %2</source>
        <translation>Перевірено таблиць: %1, з помилковими значеннями: %2</translation>
    </message>
    <message>
        <source>No position of %1 is a mate</source>
        <translation>Жодна позиція %1 не є матом</translation>
    </message>
    <message>
        <source>Max #n for %1: %2 (index %3)</source>
        <translation>Макс. #n для %1: %2 (індекс %3)</translation>
    </message>
    <message>
        <source>Position type %1, index %2</source>
        <translation>Тип позиції %1, індекс %2</translation>
    </message>
    <message>
        <source>No table holds this position</source>
        <translation>Жодна таблиця не містить цієї позиції</translation>
    </message>
    <message>
        <source>Best moves: %1</source>
        <translation>Найкращі ходи: %1</translation>
    </message>
    <message>
        <source>Paste position of this type by index</source>
        <translation>Вставити позицію цього типу за індексом</translation>
    </message>
    <message>
        <source>The position has no type of precalculated data (kings and at most 3 other pieces).</source>
        <translation>Позиція не має типу попередньо обчислених даних (королі та щонайбільше 3 інші фігури).</translation>
    </message>
    <message>
        <source>No table of %1</source>
        <translation>Немає таблиці %1</translation>
    </message>
    <message>
        <source>Index of position %1 (0..%2)</source>
        <translation>Індекс позиції %1 (0..%2)</translation>
    </message>
    <message>
        <source>Index %1 stands for no position of %2</source>
        <translation>Індекс %1 не відповідає жодній позиції %2</translation>
    </message>
    <message>
        <source>Wait until the command being run ends, or stop it.</source>
        <translation>Зачекайте завершення поточної команди або зупиніть її.</translation>
    </message>
    <message>
        <source>Stopped.</source>
        <translation>Зупинено.</translation>
    </message>
    <message>
        <source>Regression tests are usually a time-consuming operation (moreover it usually requires quite many precalculated/Nalimov data on disk)</source>
        <translation>Регресійні тести зазвичай тривалі (крім того, зазвичай потребують чимало попередньо обчислених даних/Налімова на диску)</translation>
    </message>
    <message>
        <source>Passed %1, failed %2, skipped %3</source>
        <translation>Успішних %1, невдалих %2, пропущених %3</translation>
    </message>
    <message>
        <source>Test results will be written to file RegressionTest.log</source>
        <translation>Результати тестів буде записано у файл RegressionTest.log</translation>
    </message>
    <message>
        <source>Settings were changed outside the program.
Retry the attempt to change settings.</source>
        <translation>Налаштування змінено поза програмою.
Повторіть спробу змінити налаштування.</translation>
    </message>
    <message>
        <source>Number of engine threads (applies to 1st move)</source>
        <translation>Кількість потоків рушія (стосується 1-го ходу)</translation>
    </message>
    <message>
        <source>Number of multithreading levels</source>
        <translation>Кількість рівнів багатопотоковості</translation>
    </message>
    <message>
        <source>Num.of scheduler levels (default=6, off=0)</source>
        <translation>Кількість рівнів планувальника (типово=6, вимк.=0)</translation>
    </message>
    <message>
        <source>Custom scheduler</source>
        <translation>Власний планувальник</translation>
    </message>
    <message>
        <source>Num.of observer levels (default=0, off=0)</source>
        <translation>Кількість рівнів спостерігача (типово=0, вимк.=0)</translation>
    </message>
    <message>
        <source>Let two threads analyze the same move</source>
        <translation>Дозволити двом потокам аналізувати той самий хід</translation>
    </message>
    <message>
        <source>Enable manual engine control</source>
        <translation>Увімкнути ручне керування рушієм</translation>
    </message>
    <message>
        <source>Always display heuristics selection dialog</source>
        <translation>Завжди показувати вікно вибору евристик</translation>
    </message>
    <message>
        <source>Max. % of RAM that temporary data of a problem can occupy</source>
        <translation>Макс. % RAM для тимчасових даних задачі</translation>
    </message>
    <message>
        <source>Always clear temporary data when starting solving</source>
        <translation>Завжди очищати тимчасові дані на початку розв'язування</translation>
    </message>
    <message>
        <source>Max. % of memory that precalculated/Nalimov data can occupy</source>
        <translation>Макс. % пам'яті для попередньо обчислених даних/Налімова</translation>
    </message>
    <message>
        <source>Read precalculated data from disk (do not load it into memory)</source>
        <translation>Читати попередньо обчислені дані з диска (не завантажуючи в пам'ять)</translation>
    </message>
    <message>
        <source>Always display main variant when navigating to a problem</source>
        <translation>Завжди показувати головний варіант під час переходу до задачі</translation>
    </message>
    <message>
        <source>Use main variant as sort indications for engine</source>
        <translation>Використовувати головний варіант як вказівки сортування для рушія</translation>
    </message>
    <message>
        <source>Write comments in the compatible form</source>
        <translation>Записувати коментарі в сумісній формі</translation>
    </message>
    <message>
        <source>Write full log of analysis (unrecommended)</source>
        <translation>Записувати повний журнал аналізу (не рекомендується)</translation>
    </message>
    <message>
        <source>Write log of temporary data</source>
        <translation>Записувати журнал тимчасових даних</translation>
    </message>
    <message>
        <source>Write log of relaxing special heuristics</source>
        <translation>Записувати журнал послаблення спеціальних евристик</translation>
    </message>
    <message>
        <source>Warn if not the first instance of program (0..2)</source>
        <translation>Попереджати, якщо це не перший екземпляр програми (0..2)</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Ні</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Так</translation>
    </message>
    <message>
        <source>Only with Ctrl key</source>
        <translation>Лише з клавішею Ctrl</translation>
    </message>
    <message>
        <source>Number of positions in temporary register (either checkmate or not, mate doubtful or not doubtful)</source>
        <translation>Кількість позицій у тимчасовому реєстрі (мат чи ні, мат сумнівний чи ні)</translation>
    </message>
    <message>
        <source>%1: generated in %2 s, %3 bytes</source>
        <translation>%1: згенеровано за %2 с, %3 байтів</translation>
    </message>
    <message>
        <source>%1: on disk already, %2 bytes</source>
        <translation>%1: уже на диску, %2 байтів</translation>
    </message>
    <message>
        <source>Improper value in multithreading levels option: value truncated/adjusted</source>
        <translation>Неправильне значення параметра рівнів багатопотоковості: значення обрізано/скориговано</translation>
    </message>
    <message>
        <source>Too many threads and/or multithreading levels.</source>
        <translation>Забагато потоків та/або рівнів багатопотоковості.</translation>
    </message>
    <message>
        <source>Save temporary register</source>
        <translation>Зберегти тимчасовий реєстр</translation>
    </message>
    <message>
        <source>Read temporary register</source>
        <translation>Прочитати тимчасовий реєстр</translation>
    </message>
    <message>
        <source>Temporary registers (*.ltr);;All files (*)</source>
        <translation>Тимчасові реєстри (*.ltr);;Усі файли (*)</translation>
    </message>
    <message>
        <source>Quick mode could lose the mate here: this position is solved in safe mode.</source>
        <translation>Швидкий режим міг би тут загубити мат: ця позиція розв'язується в безпечному режимі.</translation>
    </message>
    <message>
        <source>Check FEN codes</source>
        <translation>Перевірити коди FEN</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Усі файли (*)</translation>
    </message>
    <message>
        <source>Position id: %1 (copied to the clipboard)</source>
        <translation>Ідентифікатор позиції: %1 (скопійовано до буфера обміну)</translation>
    </message>
    <message>
        <source>Error opening file: %1</source>
        <translation>Помилка відкриття файлу: %1</translation>
    </message>
    <message>
        <source>Click at the botton/top of the icon to change thread to peek (A = info from all threads)</source>
        <translation>Клацніть низ/верх значка, щоб змінити потік для перегляду (A = інформація з усіх потоків)</translation>
    </message>
    <message>
        <source>Click to change size of progress information area</source>
        <translation>Клацніть, щоб змінити розмір області інформації про перебіг розв’язування</translation>
    </message>
    <message>
        <source>Thread %1: helping another thread</source>
        <translation>Потік %1: допомагає іншому потоку</translation>
    </message>
    <message>
        <source>Thread %1: %2/%3 %4</source>
        <translation>Потік %1: %2/%3 %4</translation>
    </message>
</context>
</TS>
