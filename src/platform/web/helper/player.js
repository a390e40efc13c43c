// Plays one movie over the whole page, and tells by the page's title how that goes.
(() => {
    "use strict";

    const movie = document.querySelector("meta[name=movie]").content;

    // The browser's fetch knows no schemes but the web's, and there is no web: what the movie reads comes by the
    // schemes that Kestro serves. Nothing can be sent.
    const served = (url) => /^https?:$/.test(url.protocol) ? `kestro-${url.href}` : url.href;
    const get = (url) => new Promise((resolve, reject) => {
        const request = new XMLHttpRequest();
        request.open("GET", served(url));
        request.responseType = "arraybuffer";
        request.onload = () => {
            const response = new Response(request.response, {
                headers: {"content-type": request.getResponseHeader("content-type") || "application/octet-stream"},
            });
            resolve(Object.defineProperty(response, "url", {value: url.href}));
        };
        request.onerror = () => reject(new TypeError(`cannot fetch ${url.href}`));
        request.send();
    });
    window.fetch = async (resource, options) => {
        const isRequest = resource instanceof Request;
        const url = new URL(isRequest ? resource.url : resource, document.baseURI);
        const method = options?.method ?? (isRequest ? resource.method : "GET");
        if (method !== "GET") throw new TypeError(`cannot send to ${url.href}`);
        const response = await get(url);
        if (url.href === new URL(movie).href) checkLength(response.clone());
        return response;
    };

    window.RufflePlayer = {
        config: {
            publicPath: "kestro-ruffle://player/",
            polyfills: false,
            autoplay: "on",
            unmuteOverlay: "hidden",
            splashScreen: false,
            contextMenu: "off",
            menu: false,
            letterbox: "on",
            allowFullscreen: false,
            allowScriptAccess: false,
            allowNetworking: "internal",
            openUrlMode: "deny",
            upgradeToHttps: false,
            warnOnUnsupportedContent: false,
            preferredRenderer: "canvas",
            scrollingBehavior: "never",
            maxExecutionDuration: 5,
            logLevel: "error",
        },
    };

    const hiddenParts = "#splash-screen, #play-button, #unmute-overlay, #message-overlay, #context-menu-overlay, "
        + "#panic, #virtual-keyboard, .modal";

    const fail = (reason) => {
        document.querySelector("ruffle-player")?.remove();
        document.title = `failed: ${reason}`;
    };

    // Of a file that was cut short the player shows an empty stage, and says nothing.
    const checkLength = async (response) => {
        const bytes = await response.arrayBuffer();
        const kind = String.fromCharCode(...new Uint8Array(bytes, 0, Math.min(3, bytes.byteLength)));
        if (bytes.byteLength < 8 || (kind !== "FWS" && kind !== "CWS")) return;
        const body = new Blob([bytes.slice(8)]).stream();
        const unpacked = kind === "CWS" ? body.pipeThrough(new DecompressionStream("deflate")) : body;
        let length = 8;
        try {
            for (let reader = unpacked.getReader(), part; !(part = await reader.read()).done;) length += part.value.length;
        } catch {
            // what was unpacked so far counts
        }
        if (length < new DataView(bytes).getUint32(4, true)) fail("the file is cut short");
    };

    const watchForFailure = (player) => {
        const look = () => {
            const panic = player.shadowRoot.querySelector("#panic");
            if (panic) fail(/Error message: (.*?)(: kestro-ruffle:.*)?$/m.exec(panic.textContent)?.[1] || "the player gave up");
        };
        new MutationObserver(look).observe(player.shadowRoot, {childList: true, subtree: true});
    };

    const play = () => {
        const player = window.RufflePlayer.newest().createPlayer();
        const style = document.createElement("style");
        style.textContent = `${hiddenParts} { display: none !important; }`;
        player.shadowRoot.append(style);
        watchForFailure(player);
        player.addEventListener("loadedmetadata", () => { document.title = "playing"; });
        document.body.append(player);
        player.load({url: movie}).catch((error) => fail(String(error)));
    };

    window.addEventListener("DOMContentLoaded", () => {
        if (window.RufflePlayer.newest) play();
        else document.title = "failed: the player could not be loaded";
    });
})();
