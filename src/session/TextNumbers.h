#pragma once

#include "session/RecordingTexts.h"

// The numbers of the language pack's texts: LanguageTable(LanguageIndex, number) is the text in the
// language in use. The section markers of the pack (items 1, 14, 29, ...) have no name here.
//
// Numbers are stable: they are positions in config/langpack.oml and never move. A new text takes a
// free number near its kin.
//
// In a text %1 stands for a value that the program puts in. A text that begins or ends with a blank is
// joined to a name or number on that side; the blank belongs to the text.

namespace pulselark {

enum TextNumber : int {
    // File menu.
    TextMenuFile = 15,
    TextMenuOpenSession = 16,
    TextMenuSaveSession = 17,
    TextMenuExportScan = 18,
    TextMenuPrint = 19,
    TextMenuLoadConfig = 20,
    TextMenuSaveConfig = 21,
    TextMenuTraining = 22,
    TextMenuLeaveTraining = 23,
    TextMenuSessionDocument = 24,
    TextMenuExit = 25,
    TextMenuSavePage = 26,

    // Settings: window title, also the menu's entry, and the heads of its groups.
    TextSettings = 30,
    TextGroupGeneral = 31,
    TextGroupInput = 32,
    TextGroupBiofeedback = 33,
    TextGroupBiofeedbackChannel = 34,
    TextGroupHistory = 35,
    TextGroupSpectrum = 36,
    TextGroupCoherence = 37,

    // Settings: toggle i of labToggle is TextToggleAboutAtStartup + i.
    TextToggleAboutAtStartup = 38,
    TextToggleAutoLoadConfig = 39,
    TextToggleAutoScaleAll = 40,
    TextToggleShowBackground = 41,
    TextToggleMultiSessions = 42,
    TextToggleInsertSeparator = 43,
    TextToggleLockScreens = 44,
    TextToggleBpmCoherence = 45,
    TextToggleGoldenRatio = 46,
    TextToggleOctaveRatio = 47,
    TextToggleSolidFillGraph = 48,
    TextToggleOctaveInFront = 49,
    TextToggleAutoEndSession = 50,
    TextToggleUnitPower = 51,
    TextToggleUnitPowerPerHz = 52,
    TextToggleScanHistogram = 53,
    TextToggleScanStatistics = 54,
    TextToggleScanReference = 55,
    TextToggleScanAverageBpm = 56,
    TextToggleSolidGraphs = 57,
    TextToggleHrvPower = 58,

    // Settings: action i of labSetting is TextActionDefaultConfig + i; a channel mode follows the
    // third.
    TextActionDefaultConfig = 59,
    TextActionSelectLanguage = 60,
    TextActionChannelSelect = 61,
    TextActionSelectMonitor = 62,

    // Settings: knobs, lists and the rest.
    TextKnobWaterfallDepth = 63,
    TextKnobWaterfallSpacing = 64,
    TextKnobAveraging = 65,
    TextSecondsShort = 66,
    TextHistoryStyle = 67,
    TextNoDevices = 68,
    TextColourSet = 69,
    TextLanguage = 70,
    TextSoundWithPanels = 71,
    TextMidiDevice = 72,
    TextBuiltInSynthesizer = 73,
    TextInstrument = 74,
    TextTestSounds = 75,
    TextNoSoundYet = 76,

    // View menu; the panels' own entries are the modules' names below.
    TextMenuView = 81,
    TextMenuLockConfig = 82,
    TextMenuPreset = 83,
    TextMenuConfigurations = 84,
    TextMenuNoConfigurations = 85,
    TextMenuSnapPanels = 86,
    TextMenuTidalView = 87,
    TextGames = 348,     // title of the games' window, and its menu entry
    TextGamesAxis = 349, // what its two axes are
    TextMenuMainView = 88,
    TextMenuFullScreen = 89,

    // Tools menu.
    TextMenuTools = 91,
    TextMenuBreathingTool = 92,
    TextMenuStoneGarden = 93,
    TextMenuLanguageEditor = 94,
    TextMenuSnapshot = 95,
    TextMenuProcessPriority = 96,
    TextMenuPriorityNormal = 97,
    TextMenuPriorityHigh = 98,

    // Background picture: the view menu's entries, and why a picture was not taken.
    TextMenuBackgroundPicture = 105,
    TextMenuOwnBackground = 106,
    TextFileTypePicture = 107,
    TextBackgroundFailed = 108, // a number follows
    TextBackgroundStays = 109,

    // Help menu and the about box.
    TextMenuHelp = 111,
    TextMenuUserGuide = 112,
    TextMenuAbout = 113,
    TextAboutVersion = 114,

    // The modules' names, in the order of picModule; module i is TextModuleEcgInput + i.
    TextModuleEcgInput = 116,
    TextModuleSpectrum = 117,
    TextModuleCoherence = 118,
    TextModuleHistory = 119,
    TextModuleHrv = 120,
    TextModuleQuickScan = 121,
    TextModuleTraining = 122,

    // Top bar and panel captions.
    TextQuickScan = 126,
    TextPrint = 127,
    TextEcgA = 128,
    TextEcgB = 129,
    TextSpectrumA = 130,
    TextSpectrumB = 131,

    // Status line: these follow the session's name.
    TextReplay = 132,
    TextRecordingStopped = 134,
    TextReplayEnded = 135,
    TextScanning = 136,
    TextSaving = 137,
    TextSaved = 138,

    // Status line: stands alone after a failure.
    TextFileFailure = 139,

    // Panel captions.
    TextCoherenceA = 140,
    TextCoherenceB = 141,
    TextHrvPowerA = 142,
    TextHrvPowerB = 143,
    TextHistoryCoherence = 144,
    TextHistoryDivider = 145,
    TextHistoryHeartRate = 146,
    TextBpm = 147,

    // Status line: the file's name follows TextLoading, the other two stand alone.
    TextLoading = 148,
    TextRecording = 149,
    TextReady = 150,

    // Channel modes: the text of a mode is TextChannelModeBase plus its value, 1 to 3.
    TextChannelModeAB = 152,
    TextChannelModeA = 153,
    TextChannelModeKeep = 154,

    // Heart rate, waiting for HRV (a time follows), clock, start-up, scan button.
    TextHeartRate = 155,
    TextHrvNeedsData = 156,
    TextSamplesPerSecond = 157,
    TextScanFlipChannel = 158,
    TextStartUpLoading = 159,

    // Messages; TextSaveFailed is followed by a code, and those that end in a blank by a number.
    TextPrintFailed = 161,
    TextNothingToDo = 162,
    TextSaveFailed = 163,
    TextOpenFailedSafe = 164,
    TextSaveFailedSafe = 165,
    TextAppSettingsNotFound = 167,
    TextConfigNotFound = 168,
    TextConfigLoadFailed = 169,
    TextConfigPreviewFailed = 170,
    TextMidiOutputFailed = 171,
    TextMidiSwitchFailed = 172,
    TextSaveBeforeExit = 173,
    TextOpenFailed = 174,
    TextSaveBeforeOpen = 175,
    TextRecordingRuns = 176,
    TextAppSettingsLoadFailed = 177,
    TextTrainingSettingsLoadFailed = 178,
    TextPlayerFailed = 179,

    // Quick scan page; TextScanPowerLow + i names row i of the statistics box.
    TextScanChannelA = 181,
    TextScanChannelB = 182,
    TextScanNone = 183,
    TextScanTitle = 184,
    TextScanFile = 185,
    TextScanRecorded = 186,
    TextScanPrinted = 187,
    TextScanSpectrumCaption = 188,
    TextScanCoherenceCaption = 189,
    TextScanHistogramCaption = 190,
    TextScanGaugeCaption = 191,
    TextScanScoreLow = 192,
    TextScanScoreHigh = 193,
    TextScanPowerLow = 194,
    TextScanPowerHigh = 195,
    TextScanPowerRatio = 196,
    TextScanAverage = 197,

    // Replay, stop and record buttons, clock: names and tool tips.
    TextReplayButton = 200,
    TextReplayButtonTip = 201,
    TextStopButton = 202,
    TextStopButtonTip = 203,
    TextRecordButton = 204,
    TextRecordButtonTip = 205,
    TextRecordButtonOffTip = 206,
    TextClockName = 207,
    TextClockOf = 208,
    TextProgressName = 209,

    // Module title bars, and what the mouse does on the panels.
    TextPinPanel = 210,
    TextEnlargePanel = 211,
    TextRestorePanel = 212,
    TextClosePanel = 213,
    TextSizePanel = 214,
    TextSeekTip = 215,
    TextScaleTip = 216,

    // Channel lights.
    TextChannelLight = 217,
    TextSignalGood = 218,
    TextSignalWeak = 219,
    TextSignalLost = 220,
    TextChannelOff = 221,

    // Colour schemes; scheme i is TextSchemeMidnight + i.
    TextSchemeMidnight = 222,
    TextSchemeLinen = 223,
    TextSchemePlum = 224,
    TextSchemeMist = 225,
    TextSchemeEmber = 226,

    // Message window: buttons, and its signs for screen readers.
    TextYes = 227,
    TextNo = 228,
    TextOk = 229,
    TextCancel = 230,
    TextClose = 231,
    TextSignInformation = 232,
    TextSignQuestion = 233,
    TextSignWarning = 234,

    // Progress window, dry testing, the mark at a session's end.
    TextProgressLoading = 235,
    TextProgressScanning = 236,
    TextProgressQuickScan = 237,
    TextDryTestingOn = 238,
    TextDryTestingOff = 239,
    TextSessionEnd = 240,

    // File dialogs: titles and file types.
    TextDialogOpenSession = 241,
    TextDialogSaveSession = 242,
    TextDialogSaveScan = 243,
    TextDialogLoadConfig = 244,
    TextDialogSaveConfig = 245,
    TextFileTypeSession = 246,
    TextFileTypeScan = 247,
    TextFileTypeConfig = 248,

    // More messages.
    TextUnitNotAvailable = 251,
    TextPriorityRefused = 252,
    TextSaveBeforeRecording = 253,
    TextNoMonitorChosen = 254,
    TextClearDocument = 262,
    TextUnlockDocument = 263,
    TextScanWhileRecording = 266,
    TextScanNoChannelB = 267,
    TextScanTooShort = 270,
    TextChooseSceneryThere = 272,
    TextLine = 273, // a line of a file, before its number
    TextOpenFailedHalfway = 274,
    TextNoSession = 275,

    // What a failure number means, in words.
    TextFailureOverflow = 280,
    TextFailureOutOfMemory = 281,
    TextFailureOutOfRange = 282,
    TextFailureTypeMismatch = 283,
    TextFailureBadFileName = 284,
    TextFailureFileNotFound = 285,
    TextFailureFileAlreadyOpen = 286,
    TextFailureDeviceError = 287,
    TextFailureDiskFull = 288,
    TextFailureEndOfFile = 289,
    TextFailurePermissionDenied = 290,
    TextFailureFileAccess = 291,
    TextFailurePathNotFound = 292,

    // What is in force after a file could not be read.
    TextBuiltInSettings = 298,
    TextBuiltInLayout = 299,

    // Session document: the labels of its fields; field i is TextFieldTitle + i.
    TextFieldTitle = 301,
    TextFieldPerson = 302,
    TextFieldCode = 303,
    TextFieldDate = 304,
    TextFieldTime = 305,
    TextFieldMonitor = 306,
    TextFieldPlace = 307,
    TextFieldTrainer = 308,
    TextFieldPurpose = 309,
    TextFieldNotes1 = 310,
    TextFieldNotes2 = 311,
    TextFieldNotes3 = 312,

    // Session document: the window's other words.
    TextDocument = 313,
    TextDocumentFileName = 314,
    TextDocumentCopy = 315,
    TextDocumentPaste = 316,
    TextDocumentClear = 317,
    TextDocumentLock = 318,
    TextDocumentUnlock = 319,
    TextDocumentLocked = 320,
    TextDocumentStamp = 321,
    TextDocumentStampTip = 322,
    TextDocumentSymbol1 = 323,
    TextDocumentSymbol2 = 324,

    // Training: mode i is TextModePacer + i; one or both endings after it make a tool tip.
    TextModePacer = 350,
    TextModeBaroreflex = 351,
    TextModeIncreasing = 352,
    TextModeIntegrating = 353,
    TextModeClickTip = 354,
    TextModeRightClickTip = 355,

    // Training: the start notice, TextStartsAfter, a number, TextStartsAfterSeconds.
    TextStartsAfter = 356,
    TextStartsAfterSeconds = 357,

    // Training view.
    TextTrainingMotto = 358,
    TextDynamicIndex = 359,
    TextSessionScore = 360,
    TextTrainingBarsHint = 361,
    TextModeRunningHint = 362,
    TextWholeSession = 363,
    TextWholeSessionHint = 364,
    TextSlidingWindow = 365,
    TextSlidingWindowHint = 366,
    TextReferenceBell = 367,
    TextReferenceBellHint = 368,
    TextScenery = 369,
    TextMusic = 370,
    TextTrainingLevel = 371,
    TextSourceStored = 372,
    TextSourceLive = 373,
    TextModeChosenHint = 374,
    TextChooseLevel = 375,
    TextSourceTip = 381,

    // The cover that stands in for the scenery.
    TextSceneryLoading = 376,
    TextSceneryInitializing = 377,
    TextSceneryRestoring = 378,
    TextSceneryClick = 379,
    TextSceneryRestoreFirst = 380,

    // Biofeedback settings.
    TextBiofeedbackSettings = 385,
    TextBreathingRate = 386,
    TextPerMinute = 387,
    TextBreathingBalance = 388,
    TextFibonacci = 389,
    TextPhi = 390,
    TextBreathIn = 391,
    TextBreathOut = 392,
    TextBreathTotal = 393,
    TextBreathSeconds = 394,
    TextDynamicIndexInterval = 395,
    TextEntireSession = 396,
    TextIntervalShort = 397,
    TextIntervalLong = 398,
    TextAdjustVolume = 399,
    TextPanelBackground = 400,
    TextSelectScenery = 401,
    TextAutoPlayMusicYes = 402,
    TextAutoPlayMusicNo = 403,
    TextAutoStartBreathingYes = 404,
    TextAutoStartBreathingNo = 405,
    TextMusicSelect = 406,
    TextMusicAuto = 407,
    TextBackgroundTip = 408,

    // Music player.
    TextPlayerSongs = 410,
    TextPlayerPlaylist = 411,
    TextPlayerAdd = 412,
    TextPlayerRemove = 413,
    TextPlayerAutoStart = 414,
    TextPlayerAlwaysStart = 415,
    TextPlayerFirstSong = 416,
    TextPlayerAutoRepeat = 417,
    TextPlayerAudioCue = 418,
    TextPlayerPlay = 419,
    TextPlayerStop = 420,
    TextPlayerVolume = 421,
    TextPlayerClose = 422,
    TextPlayerPause = 423,
    TextPlayerMute = 424,
    TextPlayerUnmute = 425,
    TextPlayerNoSongs = 426,

    // Language editor; an item's number follows TextEditorItem.
    TextLanguageEditor = 450,
    TextEditorReference = 451,
    TextEditorEdition = 452,
    TextEditor = 453,
    TextEditorItem = 454,
    TextEditorPackNote = 455,
    TextEditorCharacterNote = 456,
    TextEditorNotUsed = 457,
    TextEditorDefault = 458,
    TextEditorCurrent = 459,
    TextEditorApply = 460,
    TextEditorApplyEdition = 461,
    TextEditorSave = 462,
    TextEditorGo = 463,

    // What the window's own buttons and the title bars' menu do.
    TextKeepPlaces = 493,
    TextBackToPlaces = 494,
    TextKeepPlace = 495,
    TextBackToPlace = 496,
    TextMinimise = 497,
    TextMaximise = 498,
    TextFormerSize = 499,

    // Why another program could not be started.
    TextLaunchOutOfMemory = 470,
    TextLaunchFileNotFound = 471,
    TextLaunchPathNotFound = 472,
    TextLaunchAccessError = 473,
    TextLaunchInvalidProgram = 474,
    TextLaunchSharing = 475,
    TextLaunchBadAssociation = 476,
    TextLaunchTimeOut = 477,
    TextLaunchDdeFailed = 478,
    TextLaunchBusy = 479,
    TextLaunchNoAssociation = 480,
    TextLaunchLibraryNotFound = 481,
    TextLaunchFailed = 482,
};

/// The texts of the channel modes 1 to 3 follow this number.
inline constexpr int TextChannelModeBase = TextChannelModeAB - 1;

} // namespace pulselark
