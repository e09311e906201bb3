<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl">
<context>
    <name>Menu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Plik</translation>
    </message>
    <message>
        <source>&amp;New file</source>
        <translation>&amp;Nowy plik</translation>
    </message>
    <message>
        <source>&amp;Open defaulf file (myChessProblems.cp)</source>
        <translation>&amp;Otwórz plik domyślny (myChessProblems.cp)</translation>
    </message>
    <message>
        <source>&amp;Open sample compositions (&amp;sample_problems.cp)</source>
        <translation>&amp;Otwórz przykładowe kompozycje (&amp;sample_problems.cp)</translation>
    </message>
    <message>
        <source>Open file with chess problems (.cp) ...	Ctrl+O</source>
        <translation>Otwórz plik z problemami szachowymi (.cp) ...	Ctrl+O</translation>
    </message>
    <message>
        <source>&amp;Save changes	Ctrl + S</source>
        <translation>&amp;Zapisz zmiany	Ctrl + S</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Zapisz j&amp;ako...</translation>
    </message>
    <message>
        <source>&amp;Append problems from another .cp file...</source>
        <translation>&amp;Dołącz problemy z innego pliku .cp...</translation>
    </message>
    <message>
        <source>&amp;Remove problems that are present in another .cp file...</source>
        <translation>&amp;Usuń problemy obecne w innym pliku .cp...</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Zakończ</translation>
    </message>
    <message>
        <source>&amp;Position</source>
        <translation>&amp;Pozycja</translation>
    </message>
    <message>
        <source>Copy	Ctrl+C</source>
        <translation>Kopiuj	Ctrl+C</translation>
    </message>
    <message>
        <source>Copy without variants</source>
        <translation>Kopiuj bez wariantów</translation>
    </message>
    <message>
        <source>Copy without variants or tags</source>
        <translation>Kopiuj bez wariantów i tagów</translation>
    </message>
    <message>
        <source>Copy FEN code of position	Ctrl+Shift+C</source>
        <translation>Kopiuj kod FEN pozycji	Ctrl+Shift+C</translation>
    </message>
    <message>
        <source>Copy full FEN code of position</source>
        <translation>Kopiuj pełny kod FEN pozycji</translation>
    </message>
    <message>
        <source>Paste (position/FEN/moves)	Ctrl+V</source>
        <translation>Wklej (pozycję/FEN/posunięcia)	Ctrl+V</translation>
    </message>
    <message>
        <source>Paste as mirror</source>
        <translation>Wklej jako lustrzane odbicie</translation>
    </message>
    <message>
        <source>Rotate position 90°</source>
        <translation>Obróć pozycję o 90°</translation>
    </message>
    <message>
        <source>Swap black and white</source>
        <translation>Zamień czarne z białymi</translation>
    </message>
    <message>
        <source>Shift position left	Ctrl+L</source>
        <translation>Przesuń pozycję w lewo	Ctrl+L</translation>
    </message>
    <message>
        <source>Shift position right	Ctrl+R</source>
        <translation>Przesuń pozycję w prawo	Ctrl+R</translation>
    </message>
    <message>
        <source>Shift position up	Ctrl+U</source>
        <translation>Przesuń pozycję w górę	Ctrl+U</translation>
    </message>
    <message>
        <source>Shift position down	Ctrl+D</source>
        <translation>Przesuń pozycję w dół	Ctrl+D</translation>
    </message>
    <message>
        <source>Copy moves - short notation</source>
        <translation>Kopiuj posunięcia - notacja skrócona</translation>
    </message>
    <message>
        <source>Copy moves - full notation</source>
        <translation>Kopiuj posunięcia - notacja pełna</translation>
    </message>
    <message>
        <source>Copy variants - short notation</source>
        <translation>Kopiuj warianty - notacja skrócona</translation>
    </message>
    <message>
        <source>Copy variants - full notation</source>
        <translation>Kopiuj warianty - notacja pełna</translation>
    </message>
    <message>
        <source>Switch on/off position setting mode</source>
        <translation>Włącz/wyłącz tryb ustawiania pozycji</translation>
    </message>
    <message>
        <source>Increase stipulation (#n)	Click arrow up</source>
        <translation>Zwiększ liczbę posunięć (#n)	Kliknij strzałkę w górę</translation>
    </message>
    <message>
        <source>Decrease stipulation (#n)	Click arrow down</source>
        <translation>Zmniejsz liczbę posunięć (#n)	Kliknij strzałkę w dół</translation>
    </message>
    <message>
        <source>Increase stipulation (#n) by 10	Right click arrow up</source>
        <translation>Zwiększ liczbę posunięć (#n) o 10	Prawy klik strzałki w górę</translation>
    </message>
    <message>
        <source>Decrease stipulation (#n) by 10	Right click arrow down</source>
        <translation>Zmniejsz liczbę posunięć (#n) o 10	Prawy klik strzałki w dół</translation>
    </message>
    <message>
        <source>Undo last change	Ctrl+Z</source>
        <translation>Cofnij ostatnią zmianę	Ctrl+Z</translation>
    </message>
    <message>
        <source>Redo last change	Ctrl+Y</source>
        <translation>Ponów ostatnią zmianę	Ctrl+Y</translation>
    </message>
    <message>
        <source>P&amp;roblem</source>
        <translation>P&amp;roblem</translation>
    </message>
    <message>
        <source>Problem type</source>
        <translation>Rodzaj problemu</translation>
    </message>
    <message>
        <source>Two-,Three-/Moremover</source>
        <translation>Dwu-,trzy-/wielochodówka</translation>
    </message>
    <message>
        <source>Selfmate</source>
        <translation>Samomat</translation>
    </message>
    <message>
        <source>Helpmate</source>
        <translation>Mat pomocniczy</translation>
    </message>
    <message>
        <source>&amp;Solve problem	F5</source>
        <translation>&amp;Rozwiąż problem	F5</translation>
    </message>
    <message>
        <source>Find &amp;all solutions(right click on Start button)	Shift+F5</source>
        <translation>Znajdź &amp;wszystkie rozwiązania(prawy klik na przycisku Start)	Shift+F5</translation>
    </message>
    <message>
        <source>Find best defence for &amp;black	F5</source>
        <translation>Znajdź najlepszą obronę &amp;czarnych	F5</translation>
    </message>
    <message>
        <source>Find best defence for black - more &amp;thorough search	right mouseclick</source>
        <translation>Znajdź najlepszą obronę czarnych - &amp;dokładniejsze szukanie	prawy klik</translation>
    </message>
    <message>
        <source>&amp;Stop solving</source>
        <translation>&amp;Zatrzymaj rozwiązywanie</translation>
    </message>
    <message>
        <source>Solve and show whole main &amp;variant	Alt+F5 or middle-click</source>
        <translation>Rozwiąż i pokaż cały główny &amp;wariant	Alt+F5 lub środkowy klik</translation>
    </message>
    <message>
        <source>&amp;Pause (right click)</source>
        <translation>&amp;Pauza (prawy klik)</translation>
    </message>
    <message>
        <source>&amp;Pause one thread (right click + ctrl)</source>
        <translation>&amp;Pauza jednego wątku (prawy klik + ctrl)</translation>
    </message>
    <message>
        <source>&amp;Resume solving</source>
        <translation>&amp;Wznów rozwiązywanie</translation>
    </message>
    <message>
        <source>&amp;Move back</source>
        <translation>&amp;Cofnij posunięcie</translation>
    </message>
    <message>
        <source>Re&amp;do move</source>
        <translation>&amp;Ponów posunięcie</translation>
    </message>
    <message>
        <source>Add/edit &amp;comment to last move	right mouseclick</source>
        <translation>Dodaj/edytuj &amp;komentarz do ostatniego posunięcia	prawy klik</translation>
    </message>
    <message>
        <source>&amp;Next problem	Ctrl+Shift+Right arrow</source>
        <translation>&amp;Następny problem	Ctrl+Shift+Strzałka w prawo</translation>
    </message>
    <message>
        <source>&amp;Previous problem	Left arrow</source>
        <translation>&amp;Poprzedni problem	Strzałka w lewo</translation>
    </message>
    <message>
        <source>&amp;New problem	Ctrl+N</source>
        <translation>&amp;Nowy problem	Ctrl+N</translation>
    </message>
    <message>
        <source>Go to &amp;first problem	Ctrl+Home</source>
        <translation>Przejdź do &amp;pierwszego problemu	Ctrl+Home</translation>
    </message>
    <message>
        <source>Go to &amp;last problem	Ctrl+End</source>
        <translation>Przejdź do &amp;ostatniego problemu	Ctrl+End</translation>
    </message>
    <message>
        <source>Go to previously viewed problem	Ctrl Minus</source>
        <translation>Przejdź do poprzednio oglądanego problemu	Ctrl Minus</translation>
    </message>
    <message>
        <source>Return from Ctrl-Minus	Ctrl Plus</source>
        <translation>Powrót z Ctrl-Minus	Ctrl Plus</translation>
    </message>
    <message>
        <source>Add tag to the problem...	Ctrl+T</source>
        <translation>Dodaj tag do problemu...	Ctrl+T</translation>
    </message>
    <message>
        <source>Remove tag from current problem...	Ctrl+Shift+T</source>
        <translation>Usuń tag z bieżącego problemu...	Ctrl+Shift+T</translation>
    </message>
    <message>
        <source>Append set of tags from other .cp file...</source>
        <translation>Dołącz zestaw tagów z innego pliku .cp...</translation>
    </message>
    <message>
        <source>Find problem...	Ctrl+F</source>
        <translation>Znajdź problem...	Ctrl+F</translation>
    </message>
    <message>
        <source>Find next	F3</source>
        <translation>Znajdź następny	F3</translation>
    </message>
    <message>
        <source>Find previous	Shift+F3</source>
        <translation>Znajdź poprzedni	Shift+F3</translation>
    </message>
    <message>
        <source>Select problem number...	Ctrl+G</source>
        <translation>Wybierz numer problemu...	Ctrl+G</translation>
    </message>
    <message>
        <source>Select problem from list...	Ctrl+Shift+G</source>
        <translation>Wybierz problem z listy...	Ctrl+Shift+G</translation>
    </message>
    <message>
        <source>Find similar positions</source>
        <translation>Znajdź podobne pozycje</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Widok</translation>
    </message>
    <message>
        <source>&amp;Rotate chessboard view</source>
        <translation>&amp;Obróć widok szachownicy</translation>
    </message>
    <message>
        <source>&amp;Enlarge/minimize progress information area</source>
        <translation>&amp;Powiększ/zmniejsz obszar informacji o postępie</translation>
    </message>
    <message>
        <source>Var&amp;iant</source>
        <translation>Wa&amp;riant</translation>
    </message>
    <message>
        <source>Save moves as main variant</source>
        <translation>Zapisz posunięcia jako wariant główny</translation>
    </message>
    <message>
        <source>Save moves as variant...</source>
        <translation>Zapisz posunięcia jako wariant...</translation>
    </message>
    <message>
        <source>Show main variant</source>
        <translation>Pokaż wariant główny</translation>
    </message>
    <message>
        <source>Show variant...</source>
        <translation>Pokaż wariant...</translation>
    </message>
    <message>
        <source>Animate main variant</source>
        <translation>Animuj wariant główny</translation>
    </message>
    <message>
        <source>Animate variant...</source>
        <translation>Animuj wariant...</translation>
    </message>
    <message>
        <source>Stop variant animation</source>
        <translation>Zatrzymaj animację wariantu</translation>
    </message>
    <message>
        <source>Remove variant...</source>
        <translation>Usuń wariant...</translation>
    </message>
    <message>
        <source>&amp;Advanced</source>
        <translation>&amp;Zaawansowane</translation>
    </message>
    <message>
        <source>Priori&amp;ty</source>
        <translation>Prioryte&amp;t</translation>
    </message>
    <message>
        <source>&amp;High</source>
        <translation>&amp;Wysoki</translation>
    </message>
    <message>
        <source>&amp;Above normal</source>
        <translation>&amp;Powyżej normalnego</translation>
    </message>
    <message>
        <source>&amp;Normal</source>
        <translation>&amp;Normalny</translation>
    </message>
    <message>
        <source>&amp;Below normal (recommended)</source>
        <translation>P&amp;oniżej normalnego (zalecany)</translation>
    </message>
    <message>
        <source>&amp;Low</source>
        <translation>&amp;Niski</translation>
    </message>
    <message>
        <source>Processor &amp;affinity</source>
        <translation>&amp;Przypisanie procesorów</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Pomo&amp;c</translation>
    </message>
    <message>
        <source>Open &amp;manual (quick start)</source>
        <translation>Otwórz &amp;instrukcję (szybki start)</translation>
    </message>
    <message>
        <source>&amp;Open readme.txt</source>
        <translation>&amp;Otwórz readme.txt</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;O programie</translation>
    </message>
    <message>
        <source>&amp;Threads...</source>
        <translation>&amp;Wątki...</translation>
    </message>
    <message>
        <source>&amp;Information about position	Ctrl+I</source>
        <translation>&amp;Informacje o pozycji	Ctrl+I</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Opcje</translation>
    </message>
    <message>
        <source>&amp;Precalculate data (Nalimov tablebases) for this position type</source>
        <translation>&amp;Przelicz dane (tablice Nalimova) dla tego typu pozycji</translation>
    </message>
    <message>
        <source>Check if FEN codes from selected file (any text format) exist in the current file...</source>
        <translation>Sprawdź, czy kody FEN z wybranego pliku (dowolny format tekstowy) są w bieżącym pliku...</translation>
    </message>
    <message>
        <source>Clear temporary register of current problem</source>
        <translation>Wyczyść rejestr tymczasowy bieżącego problemu</translation>
    </message>
    <message>
        <source>Close program</source>
        <translation>Zamknij program</translation>
    </message>
    <message>
        <source>Copy address to clipboard</source>
        <translation>Kopiuj adres do schowka</translation>
    </message>
    <message>
        <source>Copy diagram</source>
        <translation>Kopiuj diagram</translation>
    </message>
    <message>
        <source>Display &amp;id of current position and copy it to clipboard</source>
        <translation>Pokaż &amp;identyfikator bieżącej pozycji i skopiuj go do schowka</translation>
    </message>
    <message>
        <source>Display current status of global register (precalculated data in memory)</source>
        <translation>Pokaż stan rejestru globalnego (przeliczone dane w pamięci)</translation>
    </message>
    <message>
        <source>Edit problem description...</source>
        <translation>Edytuj opis problemu...</translation>
    </message>
    <message>
        <source>Next position of this type	Shift+Ctrl+N</source>
        <translation>Następna pozycja tego typu	Shift+Ctrl+N</translation>
    </message>
    <message>
        <source>Open page in default browser</source>
        <translation>Otwórz stronę w domyślnej przeglądarce</translation>
    </message>
    <message>
        <source>Paste position of this type by index</source>
        <translation>Wklej pozycję tego typu według indeksu</translation>
    </message>
    <message>
        <source>Previous position of this type	Shift+Ctrl+P</source>
        <translation>Poprzednia pozycja tego typu	Shift+Ctrl+P</translation>
    </message>
    <message>
        <source>Read temporary register from file...</source>
        <translation>Wczytaj rejestr tymczasowy z pliku...</translation>
    </message>
    <message>
        <source>Read temporary register of current problem from default file</source>
        <translation>Wczytaj rejestr tymczasowy bieżącego problemu z pliku domyślnego</translation>
    </message>
    <message>
        <source>Recent files</source>
        <translation>Ostatnio otwierane pliki</translation>
    </message>
    <message>
        <source>Run quick regression test (solve single problem for no longer than 64 sec.)</source>
        <translation>Uruchom szybki test regresyjny (każdy problem nie dłużej niż 64 s)</translation>
    </message>
    <message>
        <source>Run regression test (solve all problems in the current file)</source>
        <translation>Uruchom test regresyjny (rozwiąż wszystkie problemy z bieżącego pliku)</translation>
    </message>
    <message>
        <source>Save temporary register of current problem</source>
        <translation>Zapisz rejestr tymczasowy bieżącego problemu</translation>
    </message>
    <message>
        <source>Save temporary register of current problem as...</source>
        <translation>Zapisz rejestr tymczasowy bieżącego problemu jako...</translation>
    </message>
    <message>
        <source>Select &amp;heuristics and find all solutions	Shift+Ctrl+F5</source>
        <translation>Wybierz &amp;heurystyki i znajdź wszystkie rozwiązania	Shift+Ctrl+F5</translation>
    </message>
    <message>
        <source>Select &amp;heuristics and find solution	Ctrl+F5</source>
        <translation>Wybierz &amp;heurystyki i znajdź rozwiązanie	Ctrl+F5</translation>
    </message>
    <message>
        <source>Show &amp;max #n for positions of this type + next position	Ctrl+M</source>
        <translation>Pokaż &amp;maks. #n dla pozycji tego typu + następna pozycja	Ctrl+M</translation>
    </message>
    <message>
        <source>Show max #n for positions of this type - previous position	Ctrl+M</source>
        <translation>Pokaż maks. #n dla pozycji tego typu - poprzednia pozycja	Ctrl+M</translation>
    </message>
    <message>
        <source>Show program</source>
        <translation>Pokaż program</translation>
    </message>
    <message>
        <source>Skip analysis of current move and go to the &amp;next one</source>
        <translation>Pomiń analizę bieżącego ruchu i przejdź do &amp;następnego</translation>
    </message>
    <message>
        <source>Sort &amp;indications...	Ctrl+W</source>
        <translation>Wskazówki &amp;sortowania...	Ctrl+W</translation>
    </message>
    <message>
        <source>Verify correctness of generated precalculated data (Nalimov) for this position type</source>
        <translation>Sprawdź poprawność wygenerowanych danych (Nalimov) dla tego typu pozycji</translation>
    </message>
    <message>
        <source>Verify correctness of partially generated precalculated data for this position type</source>
        <translation>Sprawdź poprawność częściowo wygenerowanych danych dla tego typu pozycji</translation>
    </message>
    <message>
        <source>Verify files of precalulcated data (global register) on disk</source>
        <translation>Sprawdź pliki przeliczonych danych (rejestr globalny) na dysku</translation>
    </message>
    <message>
        <source>Verify files of precalulcated data on disk - resume from cur.pos.type</source>
        <translation>Sprawdź pliki przeliczonych danych na dysku - wznów od bieżącego typu pozycji</translation>
    </message>
    <message>
        <source>Add/edit comment to to this move</source>
        <translation>Dodaj/zmień komentarz do tego posunięcia</translation>
    </message>
    <message>
        <source>Rename this variant...</source>
        <translation>Zmień nazwę wariantu...</translation>
    </message>
    <message>
        <source>Copy position to clipboard</source>
        <translation>Kopiuj pozycję do schowka</translation>
    </message>
    <message>
        <source>Copy FEN of the position to clipboard</source>
        <translation>Kopiuj FEN pozycji do schowka</translation>
    </message>
    <message>
        <source>Display position in new instance of program</source>
        <translation>Pokaż pozycję w nowym oknie programu</translation>
    </message>
    <message>
        <source>Save as main variant</source>
        <translation>Zapisz jako wariant główny</translation>
    </message>
    <message>
        <source>Save variant as...</source>
        <translation>Zapisz wariant jako...</translation>
    </message>
    <message>
        <source>Animate main variant (move by move)</source>
        <translation>Animuj wariant główny (posunięcie po posunięciu)</translation>
    </message>
    <message>
        <source>Stop animating variant</source>
        <translation>Zatrzymaj animację wariantu</translation>
    </message>
    <message>
        <source>Shift current move to be analyzed as the last one</source>
        <translation>Przesuń bieżące posunięcie na koniec analizy</translation>
    </message>
    <message>
        <source>Swap order of analysis with the next move</source>
        <translation>Zamień kolejność analizy z następnym posunięciem</translation>
    </message>
    <message>
        <source>Skip to analysis of next move</source>
        <translation>Przejdź do analizy następnego posunięcia</translation>
    </message>
</context>
<context>
    <name>Window</name>
    <message>
        <source> (paused)</source>
        <translation> (wstrzymane)</translation>
    </message>
    <message>
        <source>Append problems</source>
        <translation>Dołącz problemy</translation>
    </message>
    <message>
        <source>Bishop</source>
        <translation>Goniec</translation>
    </message>
    <message>
        <source>Cannot open the page %1.</source>
        <translation>Nie można otworzyć strony %1.</translation>
    </message>
    <message>
        <source>Chess problems (*.cp);;Problem solver text (*.pop *.txt);;EPD (*.epd);;FEN list (*.fen);;All files (*)</source>
        <translation>Problemy szachowe (*.cp);;Tekst programu rozwiązującego (*.pop *.txt);;EPD (*.epd);;Lista FEN (*.fen);;Wszystkie pliki (*)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Wyczyść</translation>
    </message>
    <message>
        <source>Click at the bottom/top of icon to decrease/increase number of engine threads (applies to 1st move)</source>
        <translation>Kliknij dół/górę ikony, aby zmniejszyć/zwiększyć liczbę wątków silnika (dotyczy 1. ruchu)</translation>
    </message>
    <message>
        <source>Click at the top/bottom to increase/decrease number of moves (stipulation) in pos.setting mode</source>
        <translation>Kliknij górę/dół, aby zwiększyć/zmniejszyć liczbę ruchów (warunek) w trybie ustawiania pozycji</translation>
    </message>
    <message>
        <source>Click to select another problem (right click: list with problem descriptions)</source>
        <translation>Kliknij, aby wybrać inny problem (prawy przycisk: lista z opisami problemów)</translation>
    </message>
    <message>
        <source>Go to first problem</source>
        <translation>Przejdź do pierwszego problemu</translation>
    </message>
    <message>
        <source>Go to last problem</source>
        <translation>Przejdź do ostatniego problemu</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informacja</translation>
    </message>
    <message>
        <source>Keys: </source>
        <translation>Klucze: </translation>
    </message>
    <message>
        <source>Knight</source>
        <translation>Skoczek</translation>
    </message>
    <message>
        <source>Longmate: a solver of long direct mates.</source>
        <translation>Longmate: program rozwiązujący długie maty wprost.</translation>
    </message>
    <message>
        <source>Mate search result</source>
        <translation>Wynik poszukiwania mata</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Nowy plik</translation>
    </message>
    <message>
        <source>Next problem</source>
        <translation>Następny problem</translation>
    </message>
    <message>
        <source>No problem %1.</source>
        <translation>Brak problemu %1.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Pauza</translation>
    </message>
    <message>
        <source>Previous problem</source>
        <translation>Poprzedni problem</translation>
    </message>
    <message>
        <source>Problem number:</source>
        <translation>Numer problemu:</translation>
    </message>
    <message>
        <source>Problems appended: %1.</source>
        <translation>Dołączono problemów: %1.</translation>
    </message>
    <message>
        <source>Problems removed: %1.</source>
        <translation>Usunięto problemów: %1.</translation>
    </message>
    <message>
        <source>Queen</source>
        <translation>Hetman</translation>
    </message>
    <message>
        <source>Remove problems</source>
        <translation>Usuń problemy</translation>
    </message>
    <message>
        <source>Rook</source>
        <translation>Wieża</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Zapisz jako</translation>
    </message>
    <message>
        <source>Select problem from list</source>
        <translation>Wybierz problem z listy</translation>
    </message>
    <message>
        <source>Select problem number</source>
        <translation>Wybierz numer problemu</translation>
    </message>
    <message>
        <source>Set position</source>
        <translation>Ustaw pozycję</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Start/stop (right click: find all solutions/pause; +Ctrl: display heuristics selection dialog)</source>
        <translation>Start/stop (prawy przycisk: znajdź wszystkie rozwiązania/pauza; +Ctrl: okno wyboru heurystyk)</translation>
    </message>
    <message>
        <source>Start/stop position setting</source>
        <translation>Rozpocznij/zakończ ustawianie pozycji</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Stop solving before another file is opened.</source>
        <translation>Zatrzymaj rozwiązywanie przed otwarciem innego pliku.</translation>
    </message>
    <message>
        <source>The position cannot be shifted: a piece would leave the board.</source>
        <translation>Nie można przesunąć pozycji: bierka wyszłaby poza szachownicę.</translation>
    </message>
    <message>
        <source>The problems have been changed. Save changes to file?</source>
        <translation>Problemy zostały zmienione. Zapisać zmiany w pliku?</translation>
    </message>
    <message>
        <source>Unable to Set Tray Icon</source>
        <translation>Nie można ustawić ikony w obszarze powiadomień</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Ostrzeżenie</translation>
    </message>
    <message>
        <source>Change description. You can use links to Pdb/Yacpdb/Meson/Albrecht/Gameknot/chessStar, e.g. Y123</source>
        <translation>Zmień opis. Możesz używać odnośników do Pdb/Yacpdb/Meson/Albrecht/Gameknot/chessStar, np. Y123</translation>
    </message>
    <message>
        <source>Move back (right click: move back a few moves)</source>
        <translation>Cofnij ruch (prawy przycisk: cofnij kilka ruchów)</translation>
    </message>
    <message>
        <source>Redo move (right click: redo a few moves)</source>
        <translation>Ponów ruch (prawy przycisk: ponów kilka ruchów)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Zapisz</translation>
    </message>
    <message>
        <source>Save changes to file</source>
        <translation>Zapisz zmiany w pliku</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Obróć</translation>
    </message>
    <message>
        <source>Rotate chessboard view</source>
        <translation>Obróć widok szachownicy</translation>
    </message>
    <message>
        <source>Improper FEN code</source>
        <translation>Niepoprawny kod FEN</translation>
    </message>
    <message>
        <source>Illegal number of kings.</source>
        <translation>Niedozwolona liczba królów.</translation>
    </message>
    <message>
        <source>Pawns cannot occupy 1st nor 8th line of the chessboard.</source>
        <translation>Piony nie mogą stać na 1. ani 8. linii szachownicy.</translation>
    </message>
    <message>
        <source>Both kings attacked.</source>
        <translation>Oba króle są atakowane.</translation>
    </message>
    <message>
        <source>Invalid position: Black king cannot be checked in starting position.</source>
        <translation>Niepoprawna pozycja: czarny król nie może być szachowany w pozycji początkowej.</translation>
    </message>
    <message>
        <source>Save moves as variant</source>
        <translation>Zapisz posunięcia jako wariant</translation>
    </message>
    <message>
        <source>Name of the variant:</source>
        <translation>Nazwa wariantu:</translation>
    </message>
    <message>
        <source>Show variant</source>
        <translation>Pokaż wariant</translation>
    </message>
    <message>
        <source>Animate variant</source>
        <translation>Animuj wariant</translation>
    </message>
    <message>
        <source>Remove variant</source>
        <translation>Usuń wariant</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Komentarz</translation>
    </message>
    <message>
        <source>Comment to the last move:</source>
        <translation>Komentarz do ostatniego posunięcia:</translation>
    </message>
    <message>
        <source>Rename this variant</source>
        <translation>Zmień nazwę wariantu</translation>
    </message>
    <message>
        <source>The problem has no stored variants.</source>
        <translation>Zadanie nie ma zapisanych wariantów.</translation>
    </message>
    <message>
        <source>Main variant: </source>
        <translation>Wariant główny: </translation>
    </message>
    <message>
        <source>Play the moves of the variant first.</source>
        <translation>Najpierw wykonaj posunięcia wariantu.</translation>
    </message>
    <message>
        <source>Add tag to the problem</source>
        <translation>Dodaj tag do zadania</translation>
    </message>
    <message>
        <source>Tag:</source>
        <translation>Tag:</translation>
    </message>
    <message>
        <source>The problem has no tags.</source>
        <translation>Zadanie nie ma tagów.</translation>
    </message>
    <message>
        <source>Remove tag from current problem</source>
        <translation>Usuń tag z bieżącego zadania</translation>
    </message>
    <message>
        <source>Edit problem description</source>
        <translation>Zmień opis zadania</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Opis:</translation>
    </message>
    <message>
        <source>The problem shown has changed.</source>
        <translation>Pokazane zadanie się zmieniło.</translation>
    </message>
    <message>
        <source>The problem is being solved: its sort indications stay as they are.</source>
        <translation>Zadanie jest rozwiązywane: jego wskazówki sortowania pozostają bez zmian.</translation>
    </message>
    <message>
        <source>A search is running.</source>
        <translation>Trwa wyszukiwanie.</translation>
    </message>
    <message>
        <source>Problem solving is pending - search by heuristics is unavailable until solving is complete.</source>
        <translation>Trwa rozwiązywanie zadania - wyszukiwanie według heurystyk jest niedostępne do jego zakończenia.</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Pytanie</translation>
    </message>
    <message>
        <source>Search by heuristics is selected - such search may be time-consuming. Do you want to continue?</source>
        <translation>Wybrano wyszukiwanie według heurystyk - może ono trwać długo. Czy kontynuować?</translation>
    </message>
    <message>
        <source>The search was not started.</source>
        <translation>Wyszukiwanie nie zostało rozpoczęte.</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Zatrzymaj</translation>
    </message>
    <message>
        <source>Search by heuristics</source>
        <translation>Wyszukiwanie według heurystyk</translation>
    </message>
    <message>
        <source>Problem %1 of %2 that match criteria</source>
        <translation>Zadanie %1 z %2 spełniających kryteria</translation>
    </message>
    <message>
        <source>Solution tree: </source>
        <translation>Drzewo rozwiązania: </translation>
    </message>
    <message>
        <source>Building the solution tree...</source>
        <translation>Budowanie drzewa rozwiązania...</translation>
    </message>
    <message>
        <source>No solution: there is no tree to show.</source>
        <translation>Brak rozwiązania: nie ma drzewa do pokazania.</translation>
    </message>
    <message>
        <source>Play White's move first, within the stipulation.</source>
        <translation>Najpierw wykonaj posunięcie białych, w granicach warunku.</translation>
    </message>
    <message>
        <source>Best defence: </source>
        <translation>Najlepsza obrona: </translation>
    </message>
    <message>
        <source>Readme</source>
        <translation>Readme</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Instrukcja</translation>
    </message>
    <message>
        <source>Threads</source>
        <translation>Wątki</translation>
    </message>
    <message>
        <source>Threads of the next solve: T, or T^L for T threads on each of L levels (up to T^L threads at once; 1..64 each):</source>
        <translation>Wątki następnego rozwiązywania: T lub T^L dla T wątków na każdym z L poziomów (do T^L wątków naraz; każda liczba 1..64):</translation>
    </message>
    <message>
        <source>Sort indications</source>
        <translation>Wskazówki sortowania</translation>
    </message>
    <message>
        <source>White moves to be analyzed first, separated by commas (~ in front: move not wanted):</source>
        <translation>Posunięcia białych analizowane najpierw, oddzielone przecinkami (~ na początku: posunięcie niepożądane):</translation>
    </message>
    <message>
        <source>Use main variant as sort indications</source>
        <translation>Używaj wariantu głównego jako wskazówek sortowania</translation>
    </message>
    <message>
        <source>Find problem</source>
        <translation>Znajdź zadanie</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Znajdź</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Wyczyść</translation>
    </message>
    <message>
        <source>Search in problem description</source>
        <translation>Szukaj w opisie zadania</translation>
    </message>
    <message>
        <source>Case sensitive</source>
        <translation>Uwzględniaj wielkość liter</translation>
    </message>
    <message>
        <source>Regular expression</source>
        <translation>Wyrażenie regularne</translation>
    </message>
    <message>
        <source>Mate in (stipulation):</source>
        <translation>Mat w (warunek):</translation>
    </message>
    <message>
        <source>from</source>
        <translation>od</translation>
    </message>
    <message>
        <source>to</source>
        <translation>do</translation>
    </message>
    <message>
        <source>Search by FEN code:</source>
        <translation>Szukaj według kodu FEN:</translation>
    </message>
    <message>
        <source>Search by tag:</source>
        <translation>Szukaj według tagu:</translation>
    </message>
    <message>
        <source>Only when black king on the edge</source>
        <translation>Tylko gdy czarny król na brzegu</translation>
    </message>
    <message>
        <source>Only unsolved problems</source>
        <translation>Tylko nierozwiązane zadania</translation>
    </message>
    <message>
        <source>Search by heuristics:</source>
        <translation>Szukaj według heurystyk:</translation>
    </message>
    <message>
        <source>Incl.relaxed heuristics:</source>
        <translation>Wraz z poluzowanymi heurystykami:</translation>
    </message>
    <message>
        <source>Only with forced SafeMode</source>
        <translation>Tylko z wymuszonym SafeMode</translation>
    </message>
    <message>
        <source>Problems with tags appended: %1.</source>
        <translation>Zadania z dodanymi tagami: %1.</translation>
    </message>
    <message>
        <source>without other heuristics</source>
        <translation>bez innych heurystyk</translation>
    </message>
    <message>
        <source>with other heuristics</source>
        <translation>z innymi heurystykami</translation>
    </message>
    <message>
        <source>partially with other heuristics</source>
        <translation>częściowo z innymi heurystykami</translation>
    </message>
    <message>
        <source>Num.of pieces on board:</source>
        <translation>Liczba bierek na szachownicy:</translation>
    </message>
    <message>
        <source>including white/black pieces:</source>
        <translation>w tym białych/czarnych bierek:</translation>
    </message>
    <message>
        <source>Num.of figures on board:</source>
        <translation>Liczba figur na szachownicy:</translation>
    </message>
    <message>
        <source>including white/black figures:</source>
        <translation>w tym białych/czarnych figur:</translation>
    </message>
    <message>
        <source>Number of major figures:</source>
        <translation>Liczba figur ciężkich:</translation>
    </message>
    <message>
        <source>incl.white/black major figures:</source>
        <translation>w tym białych/czarnych ciężkich:</translation>
    </message>
    <message>
        <source>Number of pawns:</source>
        <translation>Liczba pionów:</translation>
    </message>
    <message>
        <source>Including white/black pawns:</source>
        <translation>w tym białych/czarnych pionów:</translation>
    </message>
    <message>
        <source>white</source>
        <translation>białe</translation>
    </message>
    <message>
        <source>black</source>
        <translation>czarne</translation>
    </message>
    <message>
        <source>No problem found that matches search criteria</source>
        <translation>Nie znaleziono zadania spełniającego kryteria</translation>
    </message>
    <message>
        <source>Only similar positions found</source>
        <translation>Znaleziono tylko podobne pozycje</translation>
    </message>
    <message>
        <source>Improper FEN code.</source>
        <translation>Niepoprawny kod FEN.</translation>
    </message>
    <message>
        <source>Improper number of moves</source>
        <translation>Niepoprawna liczba posunięć</translation>
    </message>
    <message>
        <source>Improper number of pieces on chessboard.</source>
        <translation>Niepoprawna liczba bierek na szachownicy.</translation>
    </message>
    <message>
        <source>Improper number of white pieces on chessboard.</source>
        <translation>Niepoprawna liczba białych bierek na szachownicy.</translation>
    </message>
    <message>
        <source>Improper number of black pieces on chessboard.</source>
        <translation>Niepoprawna liczba czarnych bierek na szachownicy.</translation>
    </message>
    <message>
        <source>Improper number of figures on chessboard.</source>
        <translation>Niepoprawna liczba figur na szachownicy.</translation>
    </message>
    <message>
        <source>Improper number of white figures on chessboard.</source>
        <translation>Niepoprawna liczba białych figur na szachownicy.</translation>
    </message>
    <message>
        <source>Improper number of black figures on chessboard.</source>
        <translation>Niepoprawna liczba czarnych figur na szachownicy.</translation>
    </message>
    <message>
        <source>Improper number of major figures on chessboard.</source>
        <translation>Niepoprawna liczba figur ciężkich na szachownicy.</translation>
    </message>
    <message>
        <source>Improper number of white major figures.</source>
        <translation>Niepoprawna liczba białych figur ciężkich.</translation>
    </message>
    <message>
        <source>Improper number of black major figures.</source>
        <translation>Niepoprawna liczba czarnych figur ciężkich.</translation>
    </message>
    <message>
        <source>Improper number of pawns on chessboard.</source>
        <translation>Niepoprawna liczba pionów na szachownicy.</translation>
    </message>
    <message>
        <source>Improper number of white pawns on chessboard.</source>
        <translation>Niepoprawna liczba białych pionów na szachownicy.</translation>
    </message>
    <message>
        <source>Improper number of black pawns on chessboard.</source>
        <translation>Niepoprawna liczba czarnych pionów na szachownicy.</translation>
    </message>
    <message>
        <source>Program options</source>
        <translation>Opcje programu</translation>
    </message>
    <message>
        <source>Levels of analysis with solutions downloaded from %1</source>
        <translation>Liczba poziomów analizy z rozwiązaniami pobieranymi z %1</translation>
    </message>
    <message>
        <source>Add repeated positions to temporary data</source>
        <translation>Dodawaj powtórzone pozycje do danych tymczasowych</translation>
    </message>
    <message>
        <source>Minimize program to notification area (sys.tray)</source>
        <translation>Minimalizuj program do obszaru powiadomień (zasobnik)</translation>
    </message>
    <message>
        <source>Invalid number of levels of analysis with solutions dowanloaded from</source>
        <translation>Niepoprawna liczba poziomów analizy z rozwiązaniami pobieranymi z</translation>
    </message>
    <message>
        <source>Heuristics selection</source>
        <translation>Wybór heurystyk</translation>
    </message>
    <message>
        <source>Automatic choice for this position:</source>
        <translation>Wybór automatyczny dla tej pozycji:</translation>
    </message>
    <message>
        <source>Choose heuristics automatically</source>
        <translation>Wybieraj heurystyki automatycznie</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Pokaż</translation>
    </message>
    <message>
        <source>Pass without heuristics (pass 2)</source>
        <translation>Przebieg bez heurystyk (przebieg 2)</translation>
    </message>
    <message>
        <source>Yes (quick mode)</source>
        <translation>Tak (tryb szybki)</translation>
    </message>
    <message>
        <source>No (safe mode)</source>
        <translation>Nie (tryb bezpieczny)</translation>
    </message>
    <message>
        <source>Heuristic</source>
        <translation>Heurystyka</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parametry</translation>
    </message>
    <message>
        <source>no pass with heuristics</source>
        <translation>brak przebiegu z heurystykami</translation>
    </message>
    <message>
        <source>Temp.reg.: %1 (doubtful %2)</source>
        <translation>Rej.tymcz.: %1 (wątpliwych %2)</translation>
    </message>
    <message>
        <source>Folder: %1</source>
        <translation>Folder: %1</translation>
    </message>
    <message>
        <source>Memory quota: %1 MB</source>
        <translation>Limit pamięci: %1 MB</translation>
    </message>
    <message>
        <source>Loaded: %1 tables, %2 KB</source>
        <translation>Wczytane: %1 tablic, %2 KB</translation>
    </message>
    <message>
        <source>Tables on disk: %1</source>
        <translation>Tablice na dysku: %1</translation>
    </message>
    <message>
        <source>%1: %2 positions checked, %3 wrong, %4 with a missing table</source>
        <translation>%1: sprawdzono %2 pozycji, błędnych %3, z brakującą tablicą %4</translation>
    </message>
    <message>
        <source>%1: no table</source>
        <translation>%1: brak tablicy</translation>
    </message>
    <message>
        <source>Tables checked: %1, with wrong values: %2</source>
        <translation>Sprawdzone tablice: %1, z błędnymi wartościami: %2</translation>
    </message>
    <message>
        <source>No position of %1 is a mate</source>
        <translation>Żadna pozycja %1 nie jest matem</translation>
    </message>
    <message>
        <source>Max #n for %1: %2 (index %3)</source>
        <translation>Maks. #n dla %1: %2 (indeks %3)</translation>
    </message>
    <message>
        <source>Position type %1, index %2</source>
        <translation>Typ pozycji %1, indeks %2</translation>
    </message>
    <message>
        <source>No table holds this position</source>
        <translation>Żadna tablica nie zawiera tej pozycji</translation>
    </message>
    <message>
        <source>Best moves: %1</source>
        <translation>Najlepsze posunięcia: %1</translation>
    </message>
    <message>
        <source>Paste position of this type by index</source>
        <translation>Wklej pozycję tego typu według indeksu</translation>
    </message>
    <message>
        <source>The position has no type of precalculated data (kings and at most 3 other pieces).</source>
        <translation>Pozycja nie ma typu danych prekalkulowanych (króle i najwyżej 3 inne bierki).</translation>
    </message>
    <message>
        <source>No table of %1</source>
        <translation>Brak tablicy %1</translation>
    </message>
    <message>
        <source>Index of position %1 (0..%2)</source>
        <translation>Indeks pozycji %1 (0..%2)</translation>
    </message>
    <message>
        <source>Index %1 stands for no position of %2</source>
        <translation>Indeks %1 nie oznacza żadnej pozycji %2</translation>
    </message>
    <message>
        <source>Wait until the command being run ends, or stop it.</source>
        <translation>Poczekaj na koniec wykonywanego polecenia albo je zatrzymaj.</translation>
    </message>
    <message>
        <source>Stopped.</source>
        <translation>Zatrzymano.</translation>
    </message>
    <message>
        <source>Regression tests are usually a time-consuming operation (moreover it usually requires quite many precalculated/Nalimov data on disk)</source>
        <translation>Testy regresyjne są zwykle operacją czasochłonną (ponadto zwykle wymagają sporo danych prekalkulowanych/Nalimova na dysku)</translation>
    </message>
    <message>
        <source>Passed %1, failed %2, skipped %3</source>
        <translation>Zaliczone %1, niezaliczone %2, pominięte %3</translation>
    </message>
    <message>
        <source>Test results will be written to file RegressionTest.log</source>
        <translation>Wyniki testów zostaną zapisane w pliku RegressionTest.log</translation>
    </message>
    <message>
        <source>Settings were changed outside the program.
Retry the attempt to change settings.</source>
        <translation>Ustawienia zostały zmienione poza programem.
Ponów próbę zmiany ustawień.</translation>
    </message>
    <message>
        <source>Number of engine threads (applies to 1st move)</source>
        <translation>Liczba wątków silnika (dotyczy 1. posunięcia)</translation>
    </message>
    <message>
        <source>Number of multithreading levels</source>
        <translation>Liczba poziomów wielowątkowości</translation>
    </message>
    <message>
        <source>Num.of scheduler levels (default=6, off=0)</source>
        <translation>Liczba poziomów harmonogramu (domyślnie=6, wył.=0)</translation>
    </message>
    <message>
        <source>Custom scheduler</source>
        <translation>Własny harmonogram</translation>
    </message>
    <message>
        <source>Num.of observer levels (default=0, off=0)</source>
        <translation>Liczba poziomów obserwatora (domyślnie=0, wył.=0)</translation>
    </message>
    <message>
        <source>Let two threads analyze the same move</source>
        <translation>Pozwól dwóm wątkom analizować to samo posunięcie</translation>
    </message>
    <message>
        <source>Enable manual engine control</source>
        <translation>Włącz ręczne sterowanie silnikiem</translation>
    </message>
    <message>
        <source>Always display heuristics selection dialog</source>
        <translation>Zawsze pokazuj okno wyboru heurystyk</translation>
    </message>
    <message>
        <source>Max. % of RAM that temporary data of a problem can occupy</source>
        <translation>Maks. % pamięci RAM na dane tymczasowe problemu</translation>
    </message>
    <message>
        <source>Always clear temporary data when starting solving</source>
        <translation>Zawsze czyść dane tymczasowe przy rozpoczęciu rozwiązywania</translation>
    </message>
    <message>
        <source>Max. % of memory that precalculated/Nalimov data can occupy</source>
        <translation>Maks. % pamięci na dane prekalkulowane/Nalimova</translation>
    </message>
    <message>
        <source>Read precalculated data from disk (do not load it into memory)</source>
        <translation>Czytaj dane prekalkulowane z dysku (bez wczytywania do pamięci)</translation>
    </message>
    <message>
        <source>Always display main variant when navigating to a problem</source>
        <translation>Zawsze pokazuj wariant główny przy przechodzeniu do problemu</translation>
    </message>
    <message>
        <source>Use main variant as sort indications for engine</source>
        <translation>Używaj wariantu głównego jako wskazówek sortowania dla silnika</translation>
    </message>
    <message>
        <source>Write comments in the compatible form</source>
        <translation>Zapisuj komentarze w formie zgodnej</translation>
    </message>
    <message>
        <source>Write full log of analysis (unrecommended)</source>
        <translation>Zapisuj pełny dziennik analizy (niezalecane)</translation>
    </message>
    <message>
        <source>Write log of temporary data</source>
        <translation>Zapisuj dziennik danych tymczasowych</translation>
    </message>
    <message>
        <source>Write log of relaxing special heuristics</source>
        <translation>Zapisuj dziennik luzowania heurystyk specjalnych</translation>
    </message>
    <message>
        <source>Warn if not the first instance of program (0..2)</source>
        <translation>Ostrzegaj, jeśli to nie pierwsza instancja programu (0..2)</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Tak</translation>
    </message>
    <message>
        <source>Only with Ctrl key</source>
        <translation>Tylko z klawiszem Ctrl</translation>
    </message>
    <message>
        <source>Number of positions in temporary register (either checkmate or not, mate doubtful or not doubtful)</source>
        <translation>Liczba pozycji w rejestrze tymczasowym (mat lub nie, mat wątpliwy lub niewątpliwy)</translation>
    </message>
    <message>
        <source>%1: generated in %2 s, %3 bytes</source>
        <translation>%1: wygenerowano w %2 s, %3 bajtów</translation>
    </message>
    <message>
        <source>%1: on disk already, %2 bytes</source>
        <translation>%1: już na dysku, %2 bajtów</translation>
    </message>
    <message>
        <source>Improper value in multithreading levels option: value truncated/adjusted</source>
        <translation>Niepoprawna wartość opcji poziomów wielowątkowości: wartość obcięta/dopasowana</translation>
    </message>
    <message>
        <source>Too many threads and/or multithreading levels.</source>
        <translation>Za dużo wątków i/lub poziomów wielowątkowości.</translation>
    </message>
    <message>
        <source>Save temporary register</source>
        <translation>Zapisz rejestr tymczasowy</translation>
    </message>
    <message>
        <source>Read temporary register</source>
        <translation>Wczytaj rejestr tymczasowy</translation>
    </message>
    <message>
        <source>Temporary registers (*.ltr);;All files (*)</source>
        <translation>Rejestry tymczasowe (*.ltr);;Wszystkie pliki (*)</translation>
    </message>
    <message>
        <source>Quick mode could lose the mate here: this position is solved in safe mode.</source>
        <translation>Tryb szybki mógłby tu zgubić mata: ta pozycja jest rozwiązywana w trybie bezpiecznym.</translation>
    </message>
    <message>
        <source>Check FEN codes</source>
        <translation>Sprawdź kody FEN</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Wszystkie pliki (*)</translation>
    </message>
    <message>
        <source>Position id: %1 (copied to the clipboard)</source>
        <translation>Identyfikator pozycji: %1 (skopiowany do schowka)</translation>
    </message>
    <message>
        <source>Error opening file: %1</source>
        <translation>Błąd otwarcia pliku: %1</translation>
    </message>
    <message>
        <source>Click at the botton/top of the icon to change thread to peek (A = info from all threads)</source>
        <translation>Kliknij dół/górę ikony, aby zmienić podglądany wątek (A = informacje ze wszystkich wątków)</translation>
    </message>
    <message>
        <source>Click to change size of progress information area</source>
        <translation>Kliknij, aby zmienić rozmiar obszaru informacji o postępie</translation>
    </message>
    <message>
        <source>Thread %1: helping another thread</source>
        <translation>Wątek %1: pomaga innemu wątkowi</translation>
    </message>
    <message>
        <source>Thread %1: %2/%3 %4</source>
        <translation>Wątek %1: %2/%3 %4</translation>
    </message>
</context>
</TS>
