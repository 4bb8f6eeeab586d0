import QtQuick
import QtTest
import Tarnvale

Item {
    id: root

    width: 980
    height: 640

    Binding {
        target: Texts
        property: "language"
        value: bench.viewModel.language
    }

    Loader {
        id: window

        anchors.fill: parent
        focus: true
        sourceComponent: ContentView {
            viewModel: bench.viewModel
        }
    }

    TestCase {
        id: test

        readonly property AppViewModel app: bench.viewModel

        name: "Screens"
        when: windowShown

        function init() {
            window.active = false;
            root.width = 980;
            bench.renew();
            window.active = true;
            app.language = Tarnvale.AppLanguage.english;
        }

        function press(name) {
            // A list makes its rows after it was filled.
            tryVerify(() => bench.control(root, name), 5000, "no control named " + name);
            mouseClick(bench.control(root, name));
        }

        function go(section) {
            keyClick(Qt.Key_1 + section, Qt.ControlModifier);
            render();
        }

        function render() {
            root.Window.window.update();
            waitForRendering(root);
        }

        function settle() {
            for (let milliseconds = 0; app.isProcessing && milliseconds < 5000; ++milliseconds)
                wait(1);
            verify(!app.isProcessing);
        }

        function installNotes() {
            bench.installApplication("/Applications/Notes.app", "org.notes");
            bench.addFile("~/Library/Caches/org.notes/data", 5000);
        }

        function findNotes() {
            installNotes();
            go(Tarnvale.SidebarSelection.uninstaller);
            app.applicationQuery = "Notes";
            app.scanApplicationByName();
            settle();
            tryVerify(() => app.associatedItems.count === 2);
        }

        function findCaches() {
            for (const name of ["big", "bigger", "biggest"])
                // A byte more of any is shown as the next tenth.
                bench.addFile("~/Library/Caches/" + name, 1149999 + 100000 * name.length);
            go(Tarnvale.SidebarSelection.cleaner);
            press("Scan");
            settle();
            tryVerify(() => bench.control(root, "big"));
            compare(app.cleanerItems.count, 3);
        }

        function test_everyTextFitsAndNoneIsUnderTheBusyPlate() {
            bench.holdDisk();
            app.scanCleaner();
            const plate = bench.control(root, app.statusMessage).parent;
            bench.releaseDisk();
            settle();
            findNotes();
            findCaches();
            bench.becomeLaptop("Ala's", "Good");
            for (const width of [1240, 1600, 980]) {
                root.width = width;
                for (const language of [Tarnvale.AppLanguage.polish, Tarnvale.AppLanguage.english]) {
                    app.language = language;
                    for (let section = 0; section < Presentation.sections.length; ++section) {
                        go(section);
                        compare(bench.clippedTexts(root), [], "screen " + section);
                        compare(bench.textsUnder(plate), [], "screen " + section);
                    }
                }
            }
        }

        function test_everyScreenShowsWhatItIsAbout() {
            const sidebar = "Tarnvale Uninstaller [<rectangle.grid.2x2> Dashboard] [<trash> Uninstaller] [<app.badge> Applications] [<eraser> Leftovers] [<gauge.with.dots.needle.33percent> Cache & Logs] [<photo.on.rectangle.angled> Media Files] [<doc.text.magnifyingglass> Text Files] [PL] [EN] ";
            const help = ["", "Select an application or enter its exact name.", "Click Scan to load apps from the Applications folders.", "The scan only detects bundle-ID-like folders whose application cannot be found by Launch Services. Results are unselected by default.", "The scan covers the current user's caches and logs. Results are unselected by default.", "Choose a folder or disk, then select the file types to find. Scanning does not delete found files.", "Choose a folder or disk, then select document types to find: TXT, RTF, PDF, Microsoft Office, and LibreOffice/OpenDocument. Scanning does not delete found files."];
            const scan = "[<magnifyingglass> Scan]";
            // Above the results; PATH stands for the folder that is chosen.
            const above = ["<rectangle.grid.2x2> Dashboard Basic information about your Mac, storage, RAM, and battery. [<arrow.clockwise> Refresh]", "<trash> Uninstaller " + help[1] + " {Enter the exact application name} " + scan + " <app.dashed> Drag an application here Drop an .app file to scan the application and its related items.", "<app.badge> Applications " + scan, "<eraser> Leftovers " + help[3] + " " + scan + " {Exact file or folder name, e.g. com.example.core.service} [<magnifyingglass> Search]", "<gauge.with.dots.needle.33percent> Cache & Logs " + help[4] + " " + scan, "<photo.on.rectangle.angled> Media File Finder " + help[5] + " [<folder.badge.plus> Choose Folder or Disk] PATH" + scan + " [<checkmark> Video] [<checkmark> Audio] [<checkmark> Images]", "<doc.text.magnifyingglass> Text File Finder " + help[6] + " [<folder.badge.plus> Choose Folder or Disk] PATH" + scan + " [<checkmark> TXT] [<checkmark> RTF] [<checkmark> Microsoft Office] [<checkmark> LibreOffice] [<checkmark> PDF]"];
            // HELP stands for what is said.
            const nothing = ["<laptopcomputer> Unknown Mac <cpu> Processor Unknown CPU <memorychip> Memory 0 B <clock.arrow.circlepath> Boot date Not available <battery.0percent> No battery detected This Mac may not be a MacBook, or macOS does not expose battery data. <internaldrive> Storage Macintosh HD 0% Used Used 0 B Free 0 B Total 0 B <memorychip> RAM Not available Used Total 0 B Used Not available Free Not available Wired memory Not available Active memory Not available Compressed memory Not available", "<trash.slash> HELP", "<app.badge> Applications have not been scanned yet " + help[2] + " " + scan, "<eraser> No scan results HELP", "<gauge.with.dots.needle.33percent> No scan results HELP", "<photo.on.rectangle.angled> No Scan Yet HELP", "<doc.text.magnifyingglass> No Scan Yet HELP"];
            const removal = (selected, items, size) => "<checkmark.circle> Selected " + selected + " <doc.on.doc> Items " + items + " <internaldrive> Size " + size;
            const ofNotes = removal("9 KB", 2, "9 KB") + " [<checkmark>] <archivebox> org.notes /Users/me/Library/Caches/org.notes 5 KB [<checkmark>] <app.dashed> Notes.app /Applications/Notes.app 4 KB Selected: 9 KB [<trash> Move Selected to Trash]";
            const gone = symbol => removal("0 B", 1, "2 MB") + " [] <" + symbol + "> com.gone.app /Users/me/Library/Caches/com.gone.app 2 MB Selected: 0 B [<trash> Move Selected to Trash]";
            const file = (symbol, name) => "<doc.on.doc> Items 1 <internaldrive> Size 9 KB <" + symbol + "> " + name + " /Users/me/Movies/" + name + " 9 KB [<folder>]";
            const found = ["<laptopcomputer> Ala's Ala's <cpu> Processor Ala's <memorychip> Memory 1000 B <clock.arrow.circlepath> Boot date Not available <battery.100percent> Battery 81% Charge <bolt.fill> Power source Power adapter connected Estimated battery life Power adapter connected Charging Yes Health 90% Condition Good Cycle count 213 Capacity 4080 / 5000 mAh Design capacity 5550 mAh <internaldrive> Storage Ala's 75% Used Used 750 B Free 250 B Total 1 KB <memorychip> RAM 52% Used Total 1000 B Used 520 B Free 100 B Wired memory 200 B Active memory 300 B Compressed memory 20 B", "Notes org.notes Size 4 KB " + ofNotes, "Notes 4 KB Notes org.notes Size 4 KB Path Notes.app — /Applications [<doc.text.magnifyingglass> Scan Related Files] " + ofNotes, gone("questionmark.folder"), gone("archivebox"), file("film", "a & b.mov"), file("doc.plaintext", "a.txt")];
            const off = (line, names) => line.replace(/\[(<[^>]+> ([^\]]+))\]/g, (button, face, name) => names.includes(name) ? "(" + face + ")" : button);
            const see = (index, line) => {
                go(index);
                tryVerify(() => bench.seen(root) === sidebar + line, 5000, "screen " + index + ": " + bench.seen(root));
            };
            const work = ["Scan", "Scan Related Files", "Search", "Move Selected to Trash"];

            const withoutInput = [[], ["Scan"], [], ["Search"], [], ["Scan"], ["Scan"]];
            const said = "Select items first.";
            const empty = (index, help) => (above[index] + " " + nothing[index]).replace("PATH", "").replace("HELP", help);
            for (const index of above.keys())
                see(index, off(empty(index, help[index]), withoutInput[index]));
            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            for (const index of above.keys())
                see(index, off(empty(index, said), withoutInput[index]) + " <info.circle> " + said);
            bench.holdDisk();
            app.scanCleaner();
            for (const index of above.keys())
                see(index, off(empty(index, "Scanning…"), work) + " ~");
            bench.releaseDisk();
            settle();

            bench.becomeLaptop("Ala's", "Good");
            installNotes();
            go(2);
            app.loadApplications(true);
            settle();
            const listed = above[2] + " Notes 4 KB ";
            see(2, listed + "<app> Select an application Select an application from the list.");
            app.selectApplicationAt(0);
            see(2, listed + "Notes org.notes Size 4 KB Path Notes.app — /Applications [<doc.text.magnifyingglass> Scan Related Files] <doc.text.magnifyingglass> No safely associated items were found. Scan Related Files");
            findEverything();
            const withoutTick = [[], [], [], ["Search", "Move Selected to Trash"], ["Move Selected to Trash"], [], []];
            const full = index => (above[index] + " " + found[index]).replace("PATH", "/Users/me/Movies ");
            for (const index of above.keys())
                see(index, off(full(index), withoutTick[index]) + " <info.circle> Files found: 1.");
            bench.holdDisk();
            app.loadApplications(true);
            for (const index of above.keys()) {
                see(index, off(full(index), work) + " ~");
                if (found[index].endsWith("[<folder>]"))
                    press("Show in Finder");
            }
            compare(bench.revealed, ["/Users/me/Movies/a & b.mov", "/Users/me/Movies/a.txt"]);
            go(2);
            bench.releaseDisk();
            settle();
            see(2, full(2));
            bench.setChosenFolder("/Users/me/Library");
            for (const [index, category, selected] of [[5, "Video", () => app.selectedMediaCategories], [6, "TXT", () => app.selectedTextFileCategories]]) {
                go(index);
                press(category);
                verify(!selected().includes(0), category);
                press("Choose Folder or Disk");
                tryVerify(() => bench.seen(root).includes("/Users/me/Library [<magnifyingglass> Scan]"));
            }
        }

        function test_aNoticeScrollsWhereItIsLongAndOnlyThere() {
            const notice = createTemporaryQmlObject("import Tarnvale; NoticeAlert {}", root);
            const tell = lines => notice.tell({
                    "title": "Title",
                    "message": Array(lines).fill("Words of a line").join("\n")
                });
            for (let lines = 1; lines < 10; ++lines) {
                tell(lines);
                waitForRendering(root);
                verify(!bench.scrollBar(notice.contentItem), lines + " lines");
            }
            verify(bench.seen(root).includes("<exclamationmark.triangle> Title "));
            tell(100);
            tryVerify(() => bench.scrollBar(notice.contentItem));
            const bar = bench.scrollBar(notice.contentItem);
            for (const [key, isAtEnd] of [[Qt.Key_End, true], [Qt.Key_Home, false], [Qt.Key_PageDown, false]]) {
                keyClick(key);
                tryVerify(() => (bar.position + bar.size > 0.99) === isAtEnd);
            }
            verify(bar.position > 0);
            notice.close();
        }

        function test_numbersStayAsWideWhileTheirDigitsChange() {
            const widths = ["4111.1 MB", "4888.8 MB"].map(text => createTemporaryQmlObject('import Tarnvale; Figures { color: "black"; font.family: "Inter"; text: "' + text + '" }', root).implicitWidth);
            fuzzyCompare(widths[0], widths[1], 0.25);
        }

        function test_theListOfApplicationsEndsOnWholeRows() {
            for (let number = 0; number < 40; ++number)
                bench.installApplication("/Applications/Application " + number + ".app", "org.number" + number);
            app.loadApplications(true);
            settle();
            keyClick(Qt.Key_3, Qt.ControlModifier);
            tryVerify(() => keyboard().ListView.view);
            const list = keyboard().ListView.view;
            for (const height of [700, 640]) {
                root.height = height;
                waitForRendering(root);
                tryVerify(() => list.parent.height - list.height < list.rowHeight);
                compare(list.height % list.rowHeight, 0);
            }
            mouseWheel(list, 50, 50, 0, -150);
            tryVerify(() => !list.moving && list.contentY > 0 && list.contentY % list.rowHeight === 0);
            const width = list.width;
            root.width = 1600;
            waitForRendering(root);
            verify(list.width > width);
        }

        function test_theDashboardIsReadWheneverItIsShownAndNotForALanguage() {
            const readings = bench.readings;
            go(Tarnvale.SidebarSelection.leftovers);
            bench.becomeLaptop("Ala's", "Good");
            go(Tarnvale.SidebarSelection.dashboard);
            compare(bench.readings, readings + 1);
            press("Refresh");
            compare(bench.readings, readings + 2);
            app.language = Tarnvale.AppLanguage.polish;
            for (const text of ["Panel sterowania", "Zasilacz podłączony", "Dobry", "Pamięć skompresowana"])
                verify(bench.seen(root).includes(text), text);
            compare(bench.readings, readings + 2);
        }

        function test_longNamesOnTheDashboardEndInsideTheirCards() {
            const name = "Dział księgowości i kadr ".repeat(30);
            bench.becomeLaptop(name, name);
            press("Refresh");
            for (const width of [980, 1600]) {
                root.width = width;
                waitForRendering(root);
                compare(bench.clippedTexts(root).length, 5);
                verify(bench.rightEdge(root) <= width - 24);
            }
        }

        function test_returnScansOnceAndOutsideOfFieldsOnlyWhatItsButtonMay() {
            installNotes();
            go(Tarnvale.SidebarSelection.uninstaller);
            const changes = [];
            const record = () => changes.push(app.isProcessing);
            app.isProcessingChanged.connect(record);
            for (const letter of "Notes")
                keyClick(letter);
            keyClick(Qt.Key_Return);
            tryCompare(app.associatedItems, "count", 2);
            settle();
            // The catalog, then the scan: twice busy and twice idle.
            compare(changes, [true, false, true, false]);
            app.isProcessingChanged.disconnect(record);

            const list = bench.control(root, "Items");
            list.forceActiveFocus();
            bench.holdDisk();
            app.scanCleaner();
            keyClick(Qt.Key_Return);
            keyClick(Qt.Key_F5);
            compare(app.associatedItems.count, 2);
            bench.releaseDisk();
            settle();
            verify(list.activeFocus);
            bench.addFile("~/Library/Logs/org.notes/log", 5000);
            keyClick(Qt.Key_Return);
            tryCompare(app.associatedItems, "count", 3);

            go(Tarnvale.SidebarSelection.leftovers);
            keyClick(Qt.Key_Space);
            keyClick(Qt.Key_Return);
            compare(app.statusMessage, "Enter a valid file or folder name without path separators.");
        }

        function test_aListIsTickedWithTheKeyboardAlone() {
            findCaches();
            const list = bench.control(root, "Items");
            for (let presses = 0; !list.activeFocus && presses < 20; ++presses)
                keyClick(Qt.Key_Tab);
            verify(list.activeFocus);
            const caches = ["biggest", "bigger", "big"];
            const ticked = rows => compare(caches.filter(name => bench.control(root, name).isSelected), caches.filter((_, row) => rows.includes(row)));
            for (const [key, modifiers, rows] of [[Qt.Key_Space, Qt.NoModifier, [0]], [Qt.Key_A, Qt.ControlModifier, [0, 1, 2]], [Qt.Key_A, Qt.ControlModifier, []], [Qt.Key_Down, Qt.NoModifier, []], [Qt.Key_Space, Qt.NoModifier, [1]], [Qt.Key_End, Qt.NoModifier, [1]], [Qt.Key_Space, Qt.NoModifier, [1, 2]], [Qt.Key_Space, Qt.NoModifier, [1]]]) {
                keyClick(key, modifiers);
                ticked(rows);
            }
            keyClick(Qt.Key_Tab);
            verify(bench.control(root, "Move Selected to Trash").activeFocus);
        }

        function test_eachScreensButtonAndTheKeyForRefreshingDoWhatItIsFor() {
            const works = [() => app.refreshDashboard(), () => app.scanApplicationByName(), () => app.loadApplications(true), () => app.scanLeftovers(), () => app.scanCleaner(), () => app.scanMedia(), () => app.scanTextFiles()];
            for (const [section, work] of works.entries()) {
                const begins = [work, () => press(section === 0 ? "Refresh" : "Scan"), () => keyClick(Qt.Key_F5)];
                const [worked, pressed, keyed] = begins.map(begin => outcome(section, () => {
                    bench.installApplication("/Applications/Atlas.app", "org.atlas");
                    for (const path of ["Library/Logs/org.notes/log", "Library/Caches/com.gone.too/data", "Movies/b.mov", "Movies/b.txt"])
                        bench.addFile("~/" + path, 2000000);
                    render();
                    begin();
                }));
                compare(pressed, worked, "screen " + section);
                compare(keyed, worked, "screen " + section);
                verify(worked !== "", "screen " + section);
            }
        }

        function test_anApplicationIsFoundByTypingItsName() {
            for (const name of ["Calendar", "Mail", "Maps", "Maps Two", "Music"])
                bench.installApplication("/Applications/" + name + ".app", "org." + name);
            go(Tarnvale.SidebarSelection.applications);
            keyClick(Qt.Key_Return);
            settle();
            keyClick(Qt.Key_Tab);
            compare(app.selectedApplication, undefined);
            for (const [letter, name] of [["m", "Mail"], ["a", "Mail"], ["p", "Maps"], ["s", "Maps"], [" ", "Maps Two"]]) {
                keyClick(letter);
                compare(app.selectedApplication.name, name);
            }
            wait(1100);
            for (const name of ["Music", "Mail", "Maps"]) {
                keyClick("m");
                compare(app.selectedApplication.name, name);
            }
            keyClick(Qt.Key_Home);
            compare(app.selectedApplication.name, "Calendar");
        }

        /// Something is found on every screen.
        function findEverything() {
            bench.addFile("~/Library/Caches/com.gone.app/data", 2000000);
            bench.addFile("~/Movies/a & b.mov", 9000);
            bench.addFile("~/Movies/a.txt", 9000);
            bench.setChosenFolder("~/Movies");
            findNotes();
            app.chooseMediaFolder();
            app.chooseTextFolder();
            for (const find of [app.scanLeftovers, app.scanCleaner, app.scanMedia, app.scanTextFiles]) {
                find();
                settle();
            }
        }

        /// What assistive technology is to be told of each screen besides its texts: `|` stands before a text's key.
        readonly property var screens: [
            ["Button |refresh"],
            ["EditableText |search_placeholder", "Button |scan", "List |items", "ListItem org.notes, checked", "CheckBox org.notes, checked", "ListItem Notes.app, checked", "CheckBox Notes.app, checked", "Button |delete_selected"],
            ["Button |scan", "List |applications", "ListItem Notes, selected", "Button |scan_related", "List |items", "ListItem org.notes, checked", "CheckBox org.notes, checked", "ListItem Notes.app, checked", "CheckBox Notes.app, checked", "Button |delete_selected"],
            ["Button |scan", "EditableText |leftover_search_placeholder", "Button |search, disabled", "List |items", "ListItem com.gone.app", "CheckBox com.gone.app", "Button |delete_selected, disabled"],
            ["Button |scan", "List |items", "ListItem com.gone.app", "CheckBox com.gone.app", "Button |delete_selected, disabled"],
            ["Button |media_choose_folder", "Button |scan", "CheckBox |media_video, checked", "CheckBox |media_audio, checked", "CheckBox |media_image, checked", "List |items", "ListItem a & b.mov", "Button |show_in_finder"],
            ["Button |text_choose_folder", "Button |scan", "CheckBox |text_plainText, checked", "CheckBox |text_richText, checked", "CheckBox |text_microsoftOffice, checked", "CheckBox |text_libreOffice, checked", "CheckBox |text_pdf, checked", "List |items", "ListItem a.txt", "Button |show_in_finder"]
        ]

        function worded(line) {
            return line.replace(/\|(\w+)/, (_, key) => Texts.of(key));
        }

        function test_assistiveTechnologyIsToldOfEveryScreen() {
            findEverything();
            for (const language of [Tarnvale.AppLanguage.polish, Tarnvale.AppLanguage.english]) {
                app.language = language;
                const around = ["RadioButton PL", "RadioButton EN"];
                around[language] += ", checked";
                for (const [index, elements] of screens.entries()) {
                    press(Texts.of(Presentation.sections[index].textKey));
                    render();
                    tryVerify(() => bench.mistold(root).length === 0, 5000, "screen " + index + ": " + bench.mistold(root));
                    const rows = Presentation.sections.map((section, row) => "PageTab " + Texts.of(section.textKey) + (row === index ? ", selected" : ""));
                    const told = bench.told(root).map(line => line.replace(", focused", ""));
                    compare(told.filter(line => !/^(StaticText|Heading|ProgressBar|Grouping|Notification|StatusBar)/.test(line)), rows.concat(around, elements.map(worded)), "screen " + index);
                }
            }
        }

        function stateNow() {
            const lists = [app.associatedItems, app.applications, app.leftoverItems, app.cleanerItems, app.mediaFiles, app.textFiles];
            return JSON.stringify([app.language, app.sidebarSelection, app.selectedMediaFolder?.path, app.selectedTextFolder?.path, app.selectedMediaCategories, app.selectedTextFileCategories, app.pendingDeletion !== undefined, app.statusMessage, app.selectedApplication?.name, lists.map(list => [list.count, list.selectedCount]), bench.readings, bench.recycled, bench.revealed]);
        }

        /// What has become of the state, and how often work began or ended, when `act` was done on the screen; nothing where
        /// that changed nothing.
        function outcome(section, act) {
            init();
            findEverything();
            // So that another choice changes something.
            bench.setChosenFolder("/Users/me/Library");
            bench.installApplication("/Applications/Maps.app", "org.maps");
            app.loadApplications(true);
            settle();
            app.sidebarSelection = section;
            const told = screens[section].map(worded);
            tryVerify(() => told.every(line => bench.element(root, line.split(", ")[0])), 5000, told + " of " + bench.told(root));
            const before = stateNow();
            let works = 0;
            const count = () => ++works;
            app.isProcessingChanged.connect(count);
            act();
            wait(0);
            settle();
            app.isProcessingChanged.disconnect(count);
            return stateNow() === before && works === 0 ? "" : works + stateNow();
        }

        function test_everyActionDoesWhatAClickDoes() {
            for (const section of screens.keys()) {
                outcome(section, () => {});
                const lines = bench.told(root).filter(line => section === 0 || !/^(PageTab|RadioButton)/.test(line));
                for (const line of lines) {
                    const told = line.split(", ")[0];
                    const hasNothingToDo = /, disabled|, selected|^RadioButton.*, checked/.test(line);
                    for (const action of bench.actions(root, told)) {
                        // A click on a row that can be ticked only goes there.
                        const target = () => bench.element(root, told.replace("ListItem", "CheckBox")) ?? bench.element(root, told);
                        const clicked = outcome(section, () => mouseClick(target()));
                        const assisted = outcome(section, () => bench.assist(root, told, action));
                        compare(assisted, clicked, section + ": " + action + " " + told);
                        compare(clicked === "", hasNothingToDo, section + ": " + line);
                    }
                }
            }
        }

        function keyboard() {
            return root.Window.activeFocusItem;
        }

        function test_everyScreenTakesTheKeyboard() {
            const top = () => bench.control(root, "Refresh").mapToItem(root, 0, 0).y;
            tryVerify(() => bench.control(root, "Refresh"));
            const before = top();
            for (const [key, isAtTop] of [[Qt.Key_End, false], [Qt.Key_Home, true], [Qt.Key_PageDown, false], [Qt.Key_PageUp, true], [Qt.Key_Down, false], [Qt.Key_Up, true]]) {
                keyClick(key);
                compare(top() === before, isAtTop);
            }
            findCaches();
            go(Tarnvale.SidebarSelection.dashboard);
            press("Cache & Logs");
            verify(bench.control(root, "Items").activeFocus);
        }

        function test_theSidebarIsOneStopOfTab() {
            keyClick(Qt.Key_2, Qt.ControlModifier);
            const field = keyboard();
            keyClick(Qt.Key_Tab);
            compare(keyboard(), bench.control(root, "Uninstaller"));
            keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Tab);
            compare(keyboard(), field, "the language is the only other stop");
            keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Down);
            compare(app.sidebarSelection, Tarnvale.SidebarSelection.applications);
            keyClick(Qt.Key_Down);
            compare(app.sidebarSelection, Tarnvale.SidebarSelection.leftovers);
            keyClick(Qt.Key_Return);
            keyClick("x");
            compare(app.leftoverQuery, "x", "Return enters the screen");
        }

        function test_assistiveTechnologyIsToldOfRowsTicksWorkAndAlerts() {
            const isTold = line => bench.told(root).includes(line);
            bench.holdDisk();
            app.scanCleaner();
            const isWorkTold = isTold("Notification Scanning…");
            bench.releaseDisk();
            settle();
            verify(isWorkTold);
            findCaches();
            const said = "/Users/me/Library/Caches/big, 1.4 MB, cache, Exact association";
            bench.control(root, "Items").forceActiveFocus(Qt.TabFocusReason);
            verify(isTold("ListItem biggest, focused"));
            keyClick(Qt.Key_End);
            compare(bench.description(root, "ListItem big"), said);
            keyClick(Qt.Key_Space);
            compare(bench.description(root, "ListItem big"), "Selected, " + said);
            verify(isTold("ListItem big, checked, focused"));
            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            tryVerify(() => isTold("Notification Move items to Trash?\nThis will move 1 items (1.4 MB) to Trash. They can be restored from Trash."));
            verify(isTold("Button Cancel, focused"));
            compare(bench.mistold(root), []);
            bench.assist(root, "Button Move to Trash", "Press");
            settle();
            compare(bench.recycled, ["/Users/me/Library/Caches/big"]);
            verify(isTold("Notification Moved to Trash: 1 items (1.4 MB)."));
            compare(bench.description(root, "Grouping PL, EN"), "EN");
        }

        function test_aNoticeWaitsForTheConfirmationToBeAnsweredAndForTheWindow() {
            findCaches();
            bench.refuse("~/Library/Caches/big", "It is <b>busy</b> & locked.");
            app.cleanerItems.setSelected(2, true);
            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            press("Move to Trash");
            verify(app.isProcessing);
            app.cleanerItems.setSelected(0, true);
            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            tryVerify(() => bench.control(root, "Cancel"));
            settle();
            verify(app.userNotice !== undefined);
            verify(!bench.control(root, "OK"), "one at a time");
            press("Cancel");
            tryVerify(() => bench.control(root, "OK"));
            verify(bench.control(root, "big: It is <b>busy</b> & locked."), "names are shown as they are");
            keyClick(Qt.Key_Return);
            tryCompare(app, "userNotice", undefined);
            tryVerify(() => !bench.control(root, "OK"));

            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            window.active = false;
            app.confirmDeletion(app.pendingDeletion);
            settle();
            window.active = true;
            tryVerify(() => bench.control(root, "OK")?.activeFocus);
            keyClick(Qt.Key_Return);
            tryCompare(app, "userNotice", undefined);
        }

        function test_onlyItsButtonConfirmsWhatIsShownAndTheKeyboardComesBack() {
            findCaches();
            app.cleanerItems.setSelected(2, true);
            const button = bench.control(root, "Move Selected to Trash");
            for (const cancel of [() => press("Cancel"), () => keyClick(Qt.Key_Return), () => keyClick(Qt.Key_Escape)]) {
                press("Move Selected to Trash");
                tryVerify(() => bench.control(root, "Cancel")?.activeFocus);
                cancel();
                tryVerify(() => keyboard() === button);
                compare(app.pendingDeletion, undefined);
            }
            compare(app.cleanerItems.selectedCount, 1);

            keyClick(Qt.Key_Return);
            app.cleanerItems.setSelected(0, true);
            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            tryVerify(() => bench.seen(root).endsWith("<trash> Move items to Trash? This will move 1 items (1.4 MB) to Trash. They can be restored from Trash. [Move to Trash] [Cancel]"));
            app.language = Tarnvale.AppLanguage.polish;
            verify(bench.control(root, "Przenieść elementy do Kosza?"), "an open question follows the language");
            app.language = Tarnvale.AppLanguage.english;
            keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Return);
            settle();
            compare(bench.recycled, ["/Users/me/Library/Caches/big"]);
            app.cleanerItems.setSelected(0, false);
            tryVerify(() => bench.control(root, "Items").activeFocus, 5000, "the button has nothing to move any more");
            app.cleanerItems.toggleAll();
            press("Move Selected to Trash");
            press("Move to Trash");
            settle();
            tryVerify(() => keyboard() === bench.control(root, "Scan"), 5000, "nor is there a list");
            keyClick(Qt.Key_Return);
            tryCompare(app, "statusMessage", "No items matching the safety criteria were found.");
        }

        // A percent sign is written ^25 here, and a byte ^xx.
        function test_aDropTakesTheFirstFileAsACopyAndNothingElse() {
            bench.installApplication("/Applications/Notes.app", "org.notes");
            bench.installApplication("/Applications/No tes.app", "org.spaced");
            bench.installApplication("/Applications/No^ff.app", "org.bytes");
            go(Tarnvale.SidebarSelection.uninstaller);
            const zone = bench.control(root, "Drag an application here");
            const folder = "file:///Applications/";
            const list = ["text/uri-list", "# comment^0D^0Ahttps://example.org/^0D^0A" + folder + "Notes.app^0D^0A" + folder + "No^2520tes.app^0D^0A", "Notes"];
            const textThatIsAUri = ["text/plain", folder + "No^2520tes.app", "No tes"];
            const bytesThatAreNoText = ["text/uri-list", folder + "No^25ff.app^0D^0A", "No\ufffd"];
            for (const [type, data, name] of [list, bytesThatAreNoText, textThatIsAUri]) {
                verify(bench.hover(zone, type, data));
                verify(zone.isTargeted);
                bench.leave(zone);
                verify(!zone.isTargeted);
                const query = app.applicationQuery;
                verify(bench.drop(zone, type, data));
                verify(!zone.isTargeted);
                compare(app.applicationQuery, query, "the drop is answered before anything is done with it");
                tryCompare(app, "applicationQuery", name);
                settle();
            }
            verify(!bench.drop(zone, "text/plain", "just words"));
            verify(!bench.drop(zone, "text/uri-list", "https://example.org/Notes.app^0D^0A"));
            bench.addFile("~/letter.txt");
            verify(bench.drop(zone, "text/uri-list", "file:///Users/me/letter.txt^0D^0A"));
            tryCompare(app, "statusMessage", "The dropped item is not a valid .app application.");
        }

        function test_aLongListIsScrolledByTheWheelAndForAKeyThatTicksAndNotByADrag() {
            for (let number = 0; number < 40; ++number)
                bench.addFile("~/Library/Caches/cache " + number, 1100000);
            go(Tarnvale.SidebarSelection.cleaner);
            press("Scan");
            settle();
            const list = bench.control(root, "Items");
            const top = list.contentY;
            for (const x of [30, 300]) {
                mousePress(list, x, 200);
                for (let y = 190; y > 40; y -= 10)
                    mouseMove(list, x, y);
                compare(list.contentY, top);
                mouseRelease(list, x, 40);
            }
            // The first one only tells Qt the time.
            for (let turns = 0; turns < 3; ++turns) {
                mouseWheel(list, 300, 200, 0, -120);
                wait(20);
            }
            tryVerify(() => list.contentY > top);

            list.forceActiveFocus();
            list.currentIndex = 0;
            list.positionViewAtEnd();
            verify(list.contentY > list.height);
            keyClick(Qt.Key_Space);
            compare(app.cleanerItems.selectedCount, 1);
            verify(list.contentY <= 0);
        }

        /// Chooses what the open menu calls `name`.
        function choose(name) {
            tryVerify(() => bench.element(root, "MenuItem " + name));
            bench.assist(root, "MenuItem " + name, "Press");
            tryVerify(() => !bench.told(root).some(line => line.startsWith("MenuItem")));
        }

        function test_aFieldHasTheUsualMenu() {
            go(Tarnvale.SidebarSelection.leftovers);
            const field = keyboard();
            const entries = () => bench.told(root).filter(line => line.startsWith("MenuItem")).map(line => line.replace(", focused", ""));
            const openByKey = () => keyClick(Qt.Key_F10, Qt.ShiftModifier);
            field.text = "abc";
            mouseClick(field, 20, 10, Qt.RightButton);
            tryVerify(() => entries().length === 4);
            compare(entries(), ["MenuItem Cut, disabled", "MenuItem Copy, disabled", bench.clipboard ? "MenuItem Paste" : "MenuItem Paste, disabled", "MenuItem Select All"]);
            choose("Select All");
            openByKey();
            choose("Cut");
            compare(app.leftoverQuery, "", "what is typed and what is cut is told alike");
            compare(bench.clipboard, "abc");
            app.language = Tarnvale.AppLanguage.polish;
            openByKey();
            tryVerify(() => entries().length === 4);
            compare(entries(), ["MenuItem Wytnij, disabled", "MenuItem Skopiuj, disabled", "MenuItem Wklej", "MenuItem Zaznacz wszystko, disabled"]);
            choose("Wklej");
            compare(field.text, "abc");
            tryVerify(() => keyboard() === field);
        }

        function test_aRowsMenuShowsTheItemAndCopiesItsPath() {
            findEverything();
            const item = "/Users/me/Library/Caches/com.gone.app";
            for (const [section, path] of [[Tarnvale.SidebarSelection.leftovers, item], [Tarnvale.SidebarSelection.cleaner, item], [Tarnvale.SidebarSelection.mediaFinder, "/Users/me/Movies/a & b.mov"]]) {
                go(section);
                const row = () => bench.control(root, path.split("/").pop());
                tryVerify(row);
                mouseClick(row(), 200, 20, Qt.RightButton);
                choose("Show in Finder");
                compare(bench.revealed[section - 3], path);
                tryVerify(() => row().isCurrent);
                keyClick(Qt.Key_Menu);
                choose("Copy Path");
                compare(bench.clipboard, path);
            }
        }

        function test_oneTooltipBesideThePointer() {
            findEverything();
            go(Tarnvale.SidebarSelection.mediaFinder);
            tryVerify(() => bench.control(root, "a & b.mov"));
            const row = bench.control(root, "a & b.mov");
            const ofRow = () => bench.element(root, "StaticText /Users/me/Movies/a & b.mov");
            const ofButton = () => bench.element(root, "StaticText Show in Finder");
            mouseMove(row, 220, 20);
            tryVerify(ofRow);
            const place = ofRow().mapToItem(row, 0, 0);
            verify(place.y >= row.height && Math.abs(place.x - 220) < 20);
            compare(ofRow().lineCount, 1);
            mouseMove(bench.control(root, "Show in Finder"));
            tryVerify(ofButton);
            verify(!ofRow());

            const name = "Atlas ".repeat(9) + "Maps";
            bench.installApplication("/Applications/" + name + ".app", "org.maps");
            go(Tarnvale.SidebarSelection.applications);
            app.loadApplications(true);
            tryVerify(() => bench.control(root, name));
            const application = bench.control(root, name);
            mouseMove(application, 80, 16);
            tryVerify(() => bench.element(root, "StaticText " + name)?.mapToItem(application, 0, 0).y >= application.height);
        }
    }
}
