import QtQuick
import QtWebEngine
import QuietDial.Settings

// One page in the web engine, as high as it is, so that nothing of it scrolls. It keeps nothing, runs
// no script, opens nothing and asks for nothing; a link is opened in the user's browser.
WebEngineView {
    id: page

    property WebViewItem view: null
    property bool loaded: false
    // What the engine last asked for, so that it is known where a redirect comes from.
    property url asked
    // The engine counts in pixels of the screen.
    readonly property size pageSize: Qt.size(contentsSize.width / Theme.devicePixelRatio,
                                             contentsSize.height / Theme.devicePixelRatio)

    function begin() {
        if (view.isAskedByEngine)
            url = view.url;
        else if (view.fetchedPage.length > 0)
            loadHtml(view.fetchedPage, view.url);
    }
    function tellHeight() {
        if (!loaded || pageSize.height <= 0)
            return;
        if (view.loading)
            view.pageLoaded(pageSize.height);
        else
            view.heightChanged(pageSize.height);
    }

    Connections {
        target: page.view
        function onPageFetched() {
            page.begin();
        }
    }
    profile: WebEngineProfile {
        offTheRecord: true
        httpCacheType: WebEngineProfile.NoCache
        persistentCookiesPolicy: WebEngineProfile.NoPersistentCookies
        spellCheckEnabled: false
        onDownloadRequested: download => download.cancel()
    }
    settings {
        javascriptEnabled: false
        javascriptCanOpenWindows: false
        javascriptCanAccessClipboard: false
        pluginsEnabled: false
        pdfViewerEnabled: false
        localStorageEnabled: false
        localContentCanAccessFileUrls: false
        localContentCanAccessRemoteUrls: false
        allowRunningInsecureContent: false
        allowGeolocationOnInsecureOrigins: false
        autoLoadIconsForPage: false
        touchIconsEnabled: false
        dnsPrefetchEnabled: false
        hyperlinkAuditingEnabled: false
        errorPageEnabled: false
        focusOnNavigationEnabled: false
        fullScreenSupportEnabled: false
        screenCaptureEnabled: false
        webGLEnabled: false
        accelerated2dCanvasEnabled: false
        navigateOnDropEnabled: false
        playbackRequiresUserGesture: true
        showScrollBars: false
    }
    backgroundColor: Theme.webPaperColor
    audioMuted: true

    onViewChanged: begin()
    onPageSizeChanged: {
        if (view)
            view.laidOutWidth = pageSize.width;
        tellHeight();
    }
    onLoadingChanged: info => {
        if (info.status === WebEngineView.LoadStartedStatus)
            return;
        const isAnswer = info.errorDomain === WebEngineView.HttpStatusCodeDomain;
        const isGood = !isAnswer || (info.errorCode >= 200 && info.errorCode <= 299);
        if (info.status === WebEngineView.LoadSucceededStatus && isGood) {
            loaded = true;
            tellHeight();
        } else if (!loaded) {
            // Later it is where the page wanted to go on by itself that fails.
            view.pageFailed();
        }
    }
    onNavigationRequested: request => {
        const isOurs = request.navigationType === WebEngineNavigationRequest.TypedNavigation;
        const isRedirect = request.navigationType === WebEngineNavigationRequest.RedirectNavigation;
        const isOnward = (isRedirect || !request.isMainFrame) && !loaded;
        if (isOurs || (isOnward && view.mayRedirect(asked, request.url))) {
            if (request.isMainFrame)
                asked = request.url;
            return;
        }
        request.reject();
        if (request.navigationType === WebEngineNavigationRequest.LinkClickedNavigation)
            view.openOutside(request.url);
        else if (isRedirect && request.isMainFrame && !loaded)
            view.pageFailed();
    }
    onNewWindowRequested: request => {
        if (request.userInitiated)
            view.openOutside(request.requestedUrl);
    }
    onRenderProcessTerminated: {
        if (view.loading)
            view.pageFailed();
        else
            view.engineFailed();
    }
    onFeaturePermissionRequested: (origin, feature) => grantFeaturePermission(origin, feature, false)
    onCertificateError: error => error.rejectCertificate()
    onAuthenticationDialogRequested: request => {
        request.accepted = true;
        request.dialogReject();
    }
    onFileDialogRequested: request => {
        request.accepted = true;
        request.dialogReject();
    }
    onColorDialogRequested: request => {
        request.accepted = true;
        request.dialogReject();
    }
    onRegisterProtocolHandlerRequested: request => request.reject()
    onContextMenuRequested: request => request.accepted = true
    onTooltipRequested: request => request.accepted = true
    onQuotaRequested: request => request.reject()
}
