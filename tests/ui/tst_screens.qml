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
        sourceComponent: Component {
            ContentView {
                viewModel: bench.viewModel
            }
        }
    }

    Component {
        id: noticeAlert

        NoticeAlert {
        }
    }

    Component {
        id: figures

        Figures {
            font.family: "Inter"
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
            app.sidebarSelection = section;
            waitForRendering(root);
        }

        function settle() {
            tryVerify(() => !app.isProcessing);
        }

        /// Those of the texts that are not shown.
        function missing(texts) {
            const shown = bench.texts(root);
            return texts.filter(text => !shown.includes(text));
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
                bench.addFile("~/Library/Caches/" + name, 1100000 + 100000 * name.length);
            go(Tarnvale.SidebarSelection.cleaner);
            press("Scan");
            settle();
            tryVerify(() => app.cleanerItems.count === 3);
        }

        function test_everyScreenIsReachedByMouseAndKey() {
            // In the sidebar, in the heading, and the key of what that screen alone says.
            const screens = [
                ["Dashboard", "Dashboard", "dashboard_help"],
                ["Uninstaller", "Uninstaller", "welcome"],
                ["Applications", "Applications", "applications_not_scanned_help"],
                ["Leftovers", "Leftovers", "scan_leftovers_help"],
                ["Cache & Logs", "Cache & Logs", "scan_cleaner_help"],
                ["Media Files", "Media File Finder", "media_help"],
                ["Text Files", "Text File Finder", "text_help"]
            ];
            compare(Presentation.sections.length, screens.length);
            for (const [index, [name, heading, said]] of screens.entries()) {
                press(name);
                compare(app.sidebarSelection, index);
                compare(missing([heading, Texts.of(said)]), []);
            }
            for (let index = 0; index < screens.length; ++index) {
                keyClick(Qt.Key_1 + index, Qt.ControlModifier);
                compare(app.sidebarSelection, index);
            }
        }

        function test_everyControlHasANameAndEveryTextFits() {
            findNotes();
            findCaches();
            bench.becomeLaptop("Ala's", "Good");
            for (const width of [1240, 1600, 980]) {
                root.width = width;
                for (const language of [Tarnvale.AppLanguage.polish, Tarnvale.AppLanguage.english]) {
                    app.language = language;
                    for (let section = 0; section < Presentation.sections.length; ++section) {
                        go(section);
                        compare(bench.namelessControls(root), [], "screen " + section);
                        compare(bench.nameless(root), [], "screen " + section);
                        compare(bench.clippedTexts(root), [], "screen " + section);
                    }
                }
            }
        }

        function test_theBusyPlateLeavesTheTitlesFree() {
            bench.holdDisk();
            app.scanCleaner();
            const plate = bench.control(root, app.statusMessage).parent;
            for (const language of [Tarnvale.AppLanguage.polish, Tarnvale.AppLanguage.english]) {
                app.language = language;
                for (let section = 0; section < Presentation.sections.length; ++section) {
                    go(section);
                    compare(bench.textsUnder(plate), []);
                }
            }
            bench.releaseDisk();
            settle();
        }

        function test_aNoticeScrollsWhereItIsLongAndOnlyThere() {
            const notice = createTemporaryObject(noticeAlert, root);
            const tell = lines => notice.tell({
                    "title": "Title",
                    "message": Array(lines).fill("Words of a line").join("\n")
                });
            for (let lines = 1; lines < 10; ++lines) {
                tell(lines);
                waitForRendering(root);
                verify(!bench.scrollBar(notice.contentItem), lines + " lines");
            }
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
            const widths = ["4111.1 MB", "4888.8 MB"].map(text => createTemporaryObject(figures, root, {
                        "text": text
                    }).implicitWidth);
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
                compare(list.height % list.rowHeight, 0);
                verify(list.parent.height - list.height < list.rowHeight);
            }
            mouseWheel(list, 50, 50, 0, -150);
            tryVerify(() => !list.moving && list.contentY > 0 && list.contentY % list.rowHeight === 0);
            const width = list.width;
            root.width = 1600;
            waitForRendering(root);
            verify(list.width > width);
        }

        function test_theDashboardIsReadWheneverItIsShownAndNotForALanguage() {
            compare(missing(["Unknown Mac", "Macintosh HD", "0%", "No battery detected"]), []);
            const readings = bench.readings;
            go(Tarnvale.SidebarSelection.leftovers);
            bench.becomeLaptop("Ala's", "Good");
            go(Tarnvale.SidebarSelection.dashboard);
            compare(bench.readings, readings + 1);
            press("Refresh");
            compare(bench.readings, readings + 2);
            compare(missing(["Dashboard", "Ala's", "Power adapter connected", "Yes", "Good", "Compressed memory"]), []);
            app.language = Tarnvale.AppLanguage.polish;
            compare(missing(["Panel sterowania", "Ala's", "81%", "75%", "52%", "Zasilacz podłączony", "Tak", "90%", "Dobry", "213", "4080 / 5000 mAh", "5550 mAh", "Pamięć skompresowana"]), []);
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

        function test_returnInTheFieldScansOnce() {
            installNotes();
            go(Tarnvale.SidebarSelection.uninstaller);
            const changes = [];
            const record = () => changes.push(app.isProcessing);
            app.isProcessingChanged.connect(record);
            press("Enter the exact application name");
            for (const letter of "Notes")
                keyClick(letter);
            compare(app.applicationQuery, "Notes");
            keyClick(Qt.Key_Return);
            tryCompare(app.associatedItems, "count", 2);
            settle();
            // The catalog, then the scan: twice busy and twice idle.
            compare(changes, [true, false, true, false]);
            app.isProcessingChanged.disconnect(record);
        }

        function test_aBlankQueryDisablesTheButtonButNotReturn() {
            go(Tarnvale.SidebarSelection.leftovers);
            press("Exact file or folder name, e.g. com.example.core.service");
            keyClick(Qt.Key_Space);
            verify(!bench.control(root, "Search").enabled);
            keyClick(Qt.Key_Return);
            compare(app.statusMessage, "Enter a valid file or folder name without path separators.");
            go(Tarnvale.SidebarSelection.uninstaller);
            app.applicationQuery = " \t";
            verify(!bench.control(root, "Scan").enabled);
        }

        function test_aListIsTickedWithTheKeyboardAlone() {
            findCaches();
            const list = bench.control(root, "Items");
            for (let presses = 0; !list.activeFocus && presses < 20; ++presses)
                keyClick(Qt.Key_Tab);
            verify(list.activeFocus);
            verify(!bench.control(root, "Move Selected to Trash").enabled);
            const caches = ["biggest", "bigger", "big"];
            const ticked = rows => compare(caches.filter(name => bench.control(root, name).isSelected), caches.filter((_, row) => rows.includes(row)));
            for (const [key, modifiers, rows] of [[Qt.Key_Space, Qt.NoModifier, [0]], [Qt.Key_A, Qt.ControlModifier, [0, 1, 2]], [Qt.Key_A, Qt.ControlModifier, []], [Qt.Key_Down, Qt.NoModifier, []], [Qt.Key_Space, Qt.NoModifier, [1]], [Qt.Key_End, Qt.NoModifier, [1]], [Qt.Key_Space, Qt.NoModifier, [1, 2]], [Qt.Key_Space, Qt.NoModifier, [1]]]) {
                keyClick(key, modifiers);
                ticked(rows);
            }
            keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Return);
            tryVerify(() => bench.control(root, "Cancel")?.activeFocus, 5000, "Cancel is the default");
            verify(bench.control(root, "This will move 1 items (1.7 MB) to Trash. They can be restored from Trash."));
            app.language = Tarnvale.AppLanguage.polish;
            verify(bench.control(root, "Przenieść elementy do Kosza?"), "an open question follows the language");
            keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Return);
            settle();
            compare(bench.recycled.length, 1);
            compare(app.cleanerItems.count, 2);
        }

        function test_aRowThatAKeyTicksIsInSight() {
            for (let number = 0; number < 40; ++number)
                bench.addFile("~/Library/Caches/cache " + number, 1100000);
            go(Tarnvale.SidebarSelection.cleaner);
            press("Scan");
            settle();
            const list = bench.control(root, "Items");
            list.forceActiveFocus();
            list.positionViewAtEnd();
            verify(list.contentY > list.height);
            keyClick(Qt.Key_Space);
            compare(app.cleanerItems.selectedCount, 1);
            verify(list.contentY <= 0);
        }

        function test_whatAButtonForbidsNoKeyStarts() {
            findNotes();
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
        }

        function test_theKeyForRefreshingDoesWhatTheScreensButtonDoes() {
            const readings = bench.readings;
            waitForRendering(root);
            keyClick(Qt.Key_F5);
            compare(bench.readings, readings + 1);
            installNotes();
            bench.addFile("~/Library/Caches/com.gone.app/data", 2000000);
            bench.addFile("~/Movies/a.mov", 9000);
            bench.addFile("~/Movies/a.txt", 9000);
            bench.setChosenFolder("~/Movies");
            app.chooseMediaFolder();
            app.chooseTextFolder();
            app.applicationQuery = "Notes";
            const lists = [app.associatedItems, app.applications, app.leftoverItems, app.cleanerItems, app.mediaFiles, app.textFiles];
            for (const [index, list] of lists.entries()) {
                go(index + 1);
                keyClick(Qt.Key_F5);
                tryVerify(() => !list.isEmpty, 5000, "screen " + (index + 1));
                settle();
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

        function test_assistiveTechnologyDoesWhatAClickDoes() {
            findCaches();
            const total = app.cleanerItems.count;
            for (const action of ["Toggle", "Press"]) {
                verify(bench.assist(root, "bigger", action));
                compare(app.cleanerItems.selectedCount, action === "Toggle" ? 1 : 0);
            }
            verify(bench.assist(root, "Move Selected to Trash", "Press"));
            compare(app.pendingDeletion, undefined, "a disabled button");
            verify(bench.assist(root, "bigger", "Press"));
            verify(bench.assist(root, "Move Selected to Trash", "Press"));
            tryVerify(() => bench.control(root, "Cancel"));
            verify(bench.assist(root, "Move to Trash", "Press"));
            tryCompare(app.cleanerItems, "count", total - 1);
            compare(bench.recycled, ["/Users/me/Library/Caches/bigger"]);

            verify(bench.assist(root, "Media Files", "Press"));
            compare(app.sidebarSelection, Tarnvale.SidebarSelection.mediaFinder);
            bench.setChosenFolder("~/Movies");
            verify(bench.assist(root, "Choose Folder or Disk", "Press"));
            tryVerify(() => app.selectedMediaFolder !== undefined);
            verify(bench.assist(root, "PL", "Press"));
            compare(app.language, Tarnvale.AppLanguage.polish);
        }

        function keyboard() {
            return root.Window.activeFocusItem;
        }

        function test_everyScreenTakesTheKeyboard() {
            const top = name => bench.control(root, name).mapToItem(root, 0, 0).y;
            tryVerify(() => bench.control(root, "Refresh"));
            const before = top("Refresh");
            for (const [key, isAtTop] of [[Qt.Key_End, false], [Qt.Key_Home, true], [Qt.Key_PageDown, false], [Qt.Key_PageUp, true], [Qt.Key_Down, false], [Qt.Key_Up, true]]) {
                keyClick(key);
                compare(top("Refresh") === before, isAtTop);
            }
            for (const index of [1, 3]) {
                keyClick(Qt.Key_1 + index, Qt.ControlModifier);
                keyClick("x");
                compare(keyboard().text, "x", "screen " + index);
            }
            findCaches();
            press("Leftovers");
            keyClick("y");
            compare(app.leftoverQuery, "xy");
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

        function test_theKeyboardComesBack() {
            findCaches();
            const button = bench.control(root, "Move Selected to Trash");
            app.cleanerItems.setSelected(2, true);
            press("Move Selected to Trash");
            press("Cancel");
            tryVerify(() => keyboard() === button);
            press("Move Selected to Trash");
            press("Move to Trash");
            settle();
            tryVerify(() => bench.control(root, "Items").activeFocus, 5000, "the button has nothing to move any more");
            app.cleanerItems.setSelected(0, true);
            app.cleanerItems.setSelected(1, true);
            press("Move Selected to Trash");
            press("Move to Trash");
            settle();
            tryVerify(() => keyboard() === bench.control(root, "Scan"), 5000, "nor is there a list");
            keyClick(Qt.Key_Return);
            tryCompare(app, "statusMessage", "No items matching the safety criteria were found.");
        }

        function test_assistiveTechnologyIsToldWhatTheEyesSee() {
            bench.holdDisk();
            app.scanCleaner();
            compare(bench.alerts(root), ["Scanning…"]);
            bench.releaseDisk();
            settle();
            findCaches();
            const said = "/Users/me/Library/Caches/big, 1.4 MB, cache, Exact association";
            tryVerify(() => bench.control(root, "big"));
            compare(bench.description(root, "big"), said);
            verify(bench.assist(root, "big", "Toggle"));
            compare(bench.description(root, "big"), said + ", ticked");
            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            tryVerify(() => bench.alerts(root).includes("Move items to Trash?"));
            press("Move to Trash");
            settle();
            verify(bench.alerts(root).includes("Moved to Trash: 1 items (1.4 MB)."));
            compare(bench.description(root, "PL, EN"), "EN");
        }

        function test_everythingButItsButtonMeansCancel() {
            findCaches();
            app.cleanerItems.setSelected(1, true);
            for (const key of [Qt.Key_Return, Qt.Key_Escape]) {
                press("Move Selected to Trash");
                tryVerify(() => bench.control(root, "Cancel")?.activeFocus);
                keyClick(key);
                tryCompare(app, "pendingDeletion", undefined);
                tryVerify(() => !bench.control(root, "Cancel"));
            }
            compare(bench.recycled, []);
            compare(app.cleanerItems.selectedCount, 1);
        }

        function test_aNoticeWaitsForTheConfirmationToBeAnswered() {
            findCaches();
            bench.refuse("~/Library/Caches/big", "It is <b>busy</b> & locked.");
            app.cleanerItems.setSelected(2, true);
            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            tryVerify(() => bench.control(root, "Move to Trash"));
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
        }

        function test_aNoticeFromBeforeTheWindowHasTheKeyboard() {
            findCaches();
            bench.refuse("~/Library/Caches/big", "It is busy.");
            app.cleanerItems.setSelected(2, true);
            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            window.active = false;
            app.confirmDeletion(app.pendingDeletion);
            settle();
            verify(app.userNotice !== undefined);
            window.active = true;
            tryVerify(() => bench.control(root, "OK")?.activeFocus);
            keyClick(Qt.Key_Return);
            tryCompare(app, "userNotice", undefined);
        }

        function test_theStatusBarHidesWhileBusyAndWhenThereIsNothingToSay() {
            const bar = name => bench.control(root, name);
            go(Tarnvale.SidebarSelection.cleaner);
            app.requestDeletion(Tarnvale.ScanScope.cleaner);
            tryVerify(() => bar("Select items first."));
            app.scanCleaner();
            verify(!bar("Select items first."));
            settle();
            tryVerify(() => bar("No items matching the safety criteria were found."));
        }

        // A percent sign is written ^25 here, and a byte ^xx.
        function test_aDropTakesTheFirstFileAsACopy() {
            bench.installApplication("/Applications/Notes.app", "org.notes");
            bench.installApplication("/Applications/No tes.app", "org.spaced");
            bench.installApplication("/Applications/No^ff.app", "org.bytes");
            go(Tarnvale.SidebarSelection.uninstaller);
            const zone = bench.control(root, "Drag an application here");
            const folder = "file:///Applications/";
            const list = ["text/uri-list", "# comment^0D^0Ahttps://example.org/^0D^0A" + folder + "Notes.app^0D^0A" + folder + "No^2520tes.app^0D^0A", "Notes"];
            const folderOfThisComputer = ["text/uri-list", "file://localhost/Applications/No^2520tes.app/^0D^0A", "No tes"];
            const textThatIsAUri = ["text/plain", folder + "No^2520tes.app", "No tes"];
            const bytesThatAreNoText = ["text/uri-list", folder + "No^25ff.app^0D^0A", "No\ufffd"];
            for (const [type, data, name] of [list, folderOfThisComputer, bytesThatAreNoText, textThatIsAUri]) {
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
        }

        function test_aDropOfSomethingElse() {
            go(Tarnvale.SidebarSelection.uninstaller);
            const zone = bench.control(root, "Drag an application here");
            verify(!bench.drop(zone, "text/plain", "just words"));
            verify(!bench.drop(zone, "text/uri-list", "https://example.org/Notes.app^0D^0A"));
            wait(20);
            compare(app.statusMessage, "");
            bench.addFile("~/letter.txt");
            verify(bench.drop(zone, "text/uri-list", "file:///Users/me/letter.txt^0D^0A"));
            tryCompare(app, "statusMessage", "The dropped item is not a valid .app application.");
        }

        function test_aNewCatalogIsNotASelection() {
            installNotes();
            bench.installApplication("/Applications/<b>Atlas.app", "org.atlas");
            go(Tarnvale.SidebarSelection.applications);
            press("Scan");
            settle();
            compare(app.selectedApplication, undefined);
            verify(bench.control(root, "<b>Atlas"), "names are shown as they are");
            press("Notes");
            press("Scan Related Files");
            settle();
            tryCompare(app.associatedItems, "count", 2);
            app.loadApplications(true);
            settle();
            compare(app.selectedApplication.name, "Notes");
            compare(app.associatedItems.count, 2);
            press("<b>Atlas");
            compare(app.associatedItems.count, 0, "what is listed belongs to the application that is selected");
        }

        function test_aFinderNeedsAFolderAndACategory() {
            bench.addFile("~/Movies/a & b.mov", 9000);
            bench.setChosenFolder("~/Movies");
            go(Tarnvale.SidebarSelection.mediaFinder);
            verify(!bench.control(root, "Scan").enabled);
            press("Choose Folder or Disk");
            tryVerify(() => bench.control(root, "/Users/me/Movies"));
            for (const category of ["Video", "Audio", "Images"])
                press(category);
            verify(!bench.control(root, "Scan").enabled);
            press("Video");
            press("Scan");
            settle();
            tryVerify(() => bench.control(root, "a & b.mov"));
            press("Video");
            verify(bench.control(root, "a & b.mov"), "only the next scan asks for the categories");
            press("Show in Finder");
            compare(bench.revealed, ["/Users/me/Movies/a & b.mov"]);
        }
    }
}
