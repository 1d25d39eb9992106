#include "Applications.h"

#include <cstdint>
#include <sstream>

#include "ClientFiles.h"

namespace tessel::desktop {

namespace {

bool contains(const std::string& text, std::string_view part)
{
    return text.find(part) != std::string::npos;
}

/// A window of an application's class whose title contains something.
WindowCondition hasClassAndTitle(std::string className, std::string titlePart)
{
    return [className = std::move(className), titlePart = std::move(titlePart)](const WindowFacts& window) {
        return window.className == className && contains(window.title, titlePart);
    };
}

std::function<void(Keyboard&)> controlKeys(std::vector<KeySymbol> symbols)
{
    return [symbols = std::move(symbols)](Keyboard& keyboard) {
        for (const auto symbol : symbols)
            keyboard.chord({XKB_KEY_Control_L}, symbol);
    };
}

const auto pressCopyAllKeys = controlKeys({XKB_KEY_a, XKB_KEY_c});
const auto pressControlQ = controlKeys({XKB_KEY_q});

std::string decimalNumbers(const std::string& bytes)
{
    std::ostringstream numbers;
    for (const char byte : bytes)
        numbers << static_cast<int>(static_cast<unsigned char>(byte)) << ',';
    return numbers.str();
}

} // namespace

ApplicationDescription chromium(const Desktop& desktop, const std::string& page)
{
    constexpr auto title = "tessel-ready";
    // Keys reach the page once it has the focus itself and has been painted; earlier ones are dropped.
    const auto script = std::string(R"(<script>
        let isPainted = false;
        let hasSaid = false; // Later on the page says something else, and paints for the first time what it was given.
        const say = () => {
            if (hasSaid || !isPainted || !document.hasFocus())
                return;
            hasSaid = true;
            document.title = ")") +
                        title + R"(";
        };
        addEventListener("focus", say);
        new PerformanceObserver(() => {
            isPainted = true;
            say();
        }).observe({type: "paint", buffered: true});
        </script>)";
    const auto file = desktop.directory().write(
        "home/page.html", "<!DOCTYPE html><html><head><meta charset=\"utf-8\"><title>loading</title>" +
                              script + "</head><body>" + page + "</body></html>");
    return {
        .command = {"chromium", "--no-sandbox", "--no-first-run", "--no-default-browser-check",
                    "--password-store=basic", "--disable-gpu", "--disable-dev-shm-usage",
                    "--disable-background-networking",
                    "--user-data-dir=" + (desktop.directory().path() / "home/chromium").string(),
                    "file://" + file.string()},
        .variables = {},
        .isReady = hasClassAndTitle("Chromium", title),
        .pressCopyKeys = pressCopyAllKeys,
        .pressQuitKeys =
            [](Keyboard& keyboard) {
                keyboard.chord({XKB_KEY_Control_L, XKB_KEY_Shift_L}, XKB_KEY_w);
            },
    };
}

ApplicationDescription chromiumCopyingPicture(const Desktop& desktop, const std::string& pngBytes)
{
    auto description = chromium(desktop, R"(<p>Press C.</p><script>
        const bytes = Uint8Array.of()" + decimalNumbers(pngBytes) +
                                             R"();
        addEventListener("keydown", event => {
            if (event.key != "c")
                return;
            const picture = new Blob([bytes], {type: "image/png"});
            navigator.clipboard.write([new ClipboardItem({"image/png": picture})])
                .catch(error => document.title = error);
        });</script>)");
    description.pressCopyKeys = [](Keyboard& keyboard) { keyboard.tap(XKB_KEY_c); };
    return description;
}

ApplicationDescription chromiumForPasting(const Desktop& desktop)
{
    return chromium(desktop, R"(<div id="paper" contenteditable style="height: 300px">Paper: </div><script>
        const paper = document.getElementById("paper");
        paper.focus();
        addEventListener("input", () => {
            const formatted = [...paper.querySelectorAll("b, i")];
            document.title = formatted.map(part => part.tagName + ":" + part.textContent).join(" ");
        });
        // Width, height and the FNV-1a hash of all colours.
        const describe = async file => {
            const picture = await createImageBitmap(file);
            const canvas = new OffscreenCanvas(picture.width, picture.height).getContext("2d");
            canvas.drawImage(picture, 0, 0);
            const bytes = canvas.getImageData(0, 0, picture.width, picture.height).data;
            let hash = 0xcbf29ce484222325n;
            for (let index = 0; index < bytes.length; ++index) {
                if (index % 4 < 3)
                    hash = BigInt.asUintN(64, (hash ^ BigInt(bytes[index])) * 0x100000001b3n);
            }
            return `${picture.width}x${picture.height} ${hash.toString(16).padStart(16, "0")}`;
        };
        addEventListener("paste", event => {
            if (event.clipboardData.files.length == 0)
                return;
            event.preventDefault();
            describe(event.clipboardData.files[0]).then(text => document.title = text);
        });</script>)");
}

ApplicationDescription chromiumTextArea(const Desktop& desktop)
{
    return chromium(desktop, R"(<textarea id="paper" rows="20" cols="60"></textarea><script>
        const paper = document.getElementById("paper");
        paper.focus();
        let inputs = 0;
        addEventListener("input", () => {
            const bytes = new TextEncoder().encode(paper.value);
            let hash = 0x811c9dc5;
            for (const byte of bytes)
                hash = Math.imul(hash ^ byte, 0x01000193) >>> 0;
            document.title = `${++inputs}: ${bytes.length} ${hash}`;
        });</script>)");
}

std::string textFacts(const std::string& text)
{
    std::uint32_t hash = 0x811c9dc5;
    for (const char byte : text)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x01000193;
    return std::to_string(text.size()) + " " + std::to_string(hash);
}

ApplicationDescription mousepad(const Desktop& desktop, const std::string& text)
{
    const auto file = desktop.directory().write("home/note.txt", text);
    return {
        .command = {"mousepad", "--disable-server", file.string()},
        .variables = {},
        .isReady = hasClassAndTitle("Mousepad", "note.txt"),
        .pressCopyKeys = pressCopyAllKeys,
        .pressQuitKeys = pressControlQ,
    };
}

ApplicationDescription featherpad(const Desktop& desktop, const std::string& text)
{
    const auto file = desktop.directory().write("home/note.txt", text);
    return {
        .command = {"featherpad", "--standalone", file.string()},
        .variables = {},
        .isReady = hasClassAndTitle("FeatherPad", "note.txt"),
        .pressCopyKeys = pressCopyAllKeys,
        .pressQuitKeys = pressControlQ,
    };
}

ApplicationDescription xterm(const Desktop& desktop, const std::string& shownText,
                             const std::filesystem::path& arrived)
{
    const auto shown = desktop.directory().write("home/shown.txt", shownText);
    // The title says when everything is on the screen.
    const auto script =
        "cat '" + shown.string() + "'; printf '\\033]2;tessel-ready\\007'; cat > '" + arrived.string() + "'";
    return {
        .command = {"xterm", "-fa", "DejaVu Sans Mono", "-fs", "11", "-geometry", "100x24+200+200", "-xrm",
                    "*VT100.translations: #override Ctrl Shift <Key>C: copy-selection(CLIPBOARD)", "-e", "sh",
                    "-c", script},
        .variables = {},
        .isReady = hasClassAndTitle("XTerm", "tessel-ready"),
        .pressCopyKeys =
            [](Keyboard& keyboard) {
                keyboard.chord({XKB_KEY_Control_L, XKB_KEY_Shift_L}, XKB_KEY_c);
            },
        .pressQuitKeys = controlKeys({XKB_KEY_d}),
    };
}

ApplicationDescription terminalWithReader(std::vector<std::string> command, std::string className,
                                          const std::filesystem::path& arrived)
{
    command.insert(command.end(), {clientFile("terminal-reader").string(), arrived.string()});
    return {
        .command = std::move(command),
        .variables = {},
        .isReady = hasClassAndTitle(std::move(className), "tessel-ready"),
        .pressCopyKeys = {},
        .pressQuitKeys = controlKeys({XKB_KEY_d}),
    };
}

ApplicationDescription xtermWithReader(const Desktop&, const std::filesystem::path& arrived)
{
    return terminalWithReader({"xterm", "-fa", "DejaVu Sans Mono", "-fs", "11", "-e"}, "XTerm", arrived);
}

ApplicationDescription xfceTerminalWithReader(const Desktop& desktop, const std::filesystem::path& arrived)
{
    // Its question before a paste of several lines is turned off, as people do who paste into it.
    desktop.directory().makeDirectory("home/.config/xfce4/terminal");
    desktop.directory().write("home/.config/xfce4/terminal/terminalrc",
                              "[Configuration]\nMiscShowUnsafePasteDialog=FALSE\n");
    return terminalWithReader({"xfce4-terminal", "--disable-server", "-x"}, "Xfce4-terminal", arrived);
}

ApplicationDescription gimp(const Desktop&)
{
    return {
        .command = {"gimp", "--no-splash", "--new-instance"},
        .variables = {},
        .isReady = hasClassAndTitle("Gimp", "GNU Image Manipulation Program"),
        .pressCopyKeys = controlKeys({XKB_KEY_c}),
        .pressQuitKeys = pressControlQ,
    };
}

ApplicationDescription gimp(const Desktop& desktop, const std::filesystem::path& file)
{
    auto description = gimp(desktop);
    description.command.push_back(file.string());
    description.isReady = hasClassAndTitle("Gimp", "[" + file.stem().string() + "] (imported)");
    return description;
}

ApplicationDescription libreOfficeWriter(const Desktop& desktop, const std::string& document)
{
    const auto file = desktop.directory().write("home/document.html", document);
    const auto profile = "file://" + (desktop.directory().path() / "home/libreoffice").string();
    return {
        .command = {"soffice", "--norestore", "--nologo", "--nofirststartwizard",
                    "-env:UserInstallation=" + profile, "--writer", file.string()},
        .variables = {{"SAL_USE_VCLPLUGIN", "gen"}},
        .isReady = hasClassAndTitle("libreoffice-writer", "document.html"),
        .pressCopyKeys = pressCopyAllKeys,
        .pressQuitKeys = pressControlQ,
    };
}

} // namespace tessel::desktop
