import QtQuick
import QtWebEngine

// One page without anything around it: it opens nothing, keeps nothing, asks nobody and is granted nothing. What
// becomes of it is told to `page`.
WebEngineView {
    id: view

    required property QtObject page

    function ask() { runJavaScript("location.href", address => page.answered(String(address))) }

    backgroundColor: "black"
    activeFocusOnPress: false

    settings.accelerated2dCanvasEnabled: false
    settings.allowGeolocationOnInsecureOrigins: false
    settings.allowRunningInsecureContent: false
    settings.allowWindowActivationFromJavaScript: false
    settings.autoLoadIconsForPage: false
    settings.dnsPrefetchEnabled: false
    settings.errorPageEnabled: false
    settings.focusOnNavigationEnabled: false
    settings.fullScreenSupportEnabled: false
    settings.hyperlinkAuditingEnabled: false
    settings.javascriptCanAccessClipboard: false
    settings.javascriptCanOpenWindows: false
    settings.javascriptCanPaste: false
    settings.localContentCanAccessFileUrls: false
    settings.localContentCanAccessRemoteUrls: false
    settings.pdfViewerEnabled: false
    settings.playbackRequiresUserGesture: false
    settings.pluginsEnabled: false
    settings.screenCaptureEnabled: false
    settings.showScrollBars: false
    settings.unknownUrlSchemePolicy: WebEngineSettings.DisallowUnknownUrlSchemes
    settings.webGLEnabled: false
    settings.webRTCPublicInterfacesOnly: true

    onAuthenticationDialogRequested: request => { request.accepted = true; request.dialogReject() }
    onCertificateError: error => error.rejectCertificate()
    onColorDialogRequested: request => { request.accepted = true; request.dialogReject() }
    onContextMenuRequested: request => { request.accepted = true }
    onFeaturePermissionRequested: (origin, feature) => grantFeaturePermission(origin, feature, false)
    onFileDialogRequested: request => { request.accepted = true; request.dialogReject() }
    onFileSystemAccessRequested: request => request.reject()
    onFullScreenRequested: request => request.reject()
    onJavaScriptDialogRequested: request => { request.accepted = true; request.dialogReject() }
    onQuotaRequested: request => request.reject()
    onRegisterProtocolHandlerRequested: request => request.reject()
    onSelectClientCertificate: selection => selection.selectNone()
    onTooltipRequested: request => { request.accepted = true }
    onTouchSelectionMenuRequested: request => { request.accepted = true }

    onNavigationRequested: request => {
        if (!page.mayNavigate(request.url)) request.reject()
    }
    onLoadingChanged: info => {
        if (info.status === WebEngineView.LoadFailedStatus) page.loadFailed(info.errorString)
        if (info.status === WebEngineView.LoadSucceededStatus) page.loadSucceeded()
    }
    onJavaScriptConsoleMessage: () => {}
    onTitleChanged: page.titleSet(title)
    onRenderProcessTerminated: page.crashed()

    Connections {
        target: view.profile
        function onDownloadRequested(download) {
            const type = download.mimeType
            download.cancel()
            // Where a document stands already, a link of it led there, and the document goes on.
            if (view.history.items.rowCount() === 0) view.page.cameAsDownload(type)
        }
    }
}
