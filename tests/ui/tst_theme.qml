import QtTest
import Tarnvale

/// What is to be read stands out from what it lies on, and what only has to be seen does so, too.
TestCase {
    name: "Theme"

    readonly property real toRead: 4.5
    readonly property real toSee: 3

    function over(ink, ground) {
        const mixed = channel => ink[channel] * ink.a + ground[channel] * (1 - ink.a);
        return Qt.rgba(mixed("r"), mixed("g"), mixed("b"), 1);
    }

    /// As the Web Content Accessibility Guidelines measure it.
    function contrast(ink, ground) {
        const linear = part => part <= 0.04045 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
        const luminance = color => 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
        const [darker, lighter] = [luminance(over(ink, ground)), luminance(ground)].sort((a, b) => a - b);
        return (lighter + 0.05) / (darker + 0.05);
    }

    function all(list, parts) {
        return [].concat(...list.map(parts));
    }

    function test_everythingStandsOut_data() {
        return [{"tag": "in the dark", "dark": true}, {"tag": "in the light", "dark": false}];
    }

    function test_everythingStandsOut(appearance) {
        Theme.dark = appearance.dark;
        const washed = (ground, washes) => [ground, ...washes.map(wash => over(wash, ground))];
        const rows = all([Theme.screenBackground, Theme.cardFill, Theme.sidebarBackground], ground => washed(ground, [Theme.hoverWash, Theme.accentWash]));
        const plates = [Theme.pillFill, Theme.alertFill, Theme.trackFill, over(Theme.barMaterial, Theme.screenBackground), over(Theme.plateMaterial, Theme.screenBackground)];
        const fills = all([Theme.prominentFill, Theme.destructiveFill], fill => washed(fill, [Theme.fillHoverWash, Theme.fillPressWash]));
        const gaugeGrounds = [Theme.cardFill, over(Theme.gaugeTrack, Theme.cardFill)];
        const gauges = [Theme.chargeShades, Theme.storageShades, Theme.memoryShades];
        const expected = [
            ["text", toRead, [Theme.primary, Theme.secondary], [...rows, ...plates]],
            ["text of controls", toRead, [Theme.primary], [Theme.fieldFill, Theme.segmentFill, ...washed(Theme.controlFill, [Theme.hoverWash, Theme.pressWash])]],
            ["placeholder", toRead, [Theme.placeholder], [Theme.fieldFill]],
            ["text on a fill", toRead, [Theme.inkOnFill], fills],
            ["destructive text", toRead, [Theme.destructiveInk], washed(Theme.controlFill, [Theme.hoverWash])],
            ["badge", toRead, [Theme.tints.orange], [Theme.cardFill]],
            ["symbol of an empty state", toSee, [Theme.placeholder], [Theme.screenBackground, Theme.cardFill]],
            ["symbol", toSee, [Theme.accent], [...rows, Theme.pillFill]],
            ["edge, ring or scroll bar", toSee, [Theme.checkEdge, Theme.focusRing, Theme.scrollThumb, Theme.scrollThumbInHand], [...rows.slice(0, 6), Theme.alertFill]],
            ["gauge", toSee, all(gauges, gauge => [gauge.top, gauge.bottom, gauge.symbol]), gaugeGrounds]
        ];
        for (const tint of ["blue", "green", "teal", "indigo", "purple", "gray", "orange", "cyan", "red"].map(Theme.tint)) {
            const tiles = [...rows.slice(3, 6), Theme.alertFill].map(ground => over(Theme.withOpacity(tint, Theme.tileOpacity), ground));
            expected.push(["tile", toSee, [tint], tiles]);
        }
        for (const [what, least, inks, grounds] of expected) {
            for (const ink of inks) {
                for (const ground of grounds)
                    verify(contrast(ink, ground) >= least, what + ": " + ink + " on " + ground + " has " + contrast(ink, ground).toFixed(2));
            }
        }
    }
}
