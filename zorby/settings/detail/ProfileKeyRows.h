#pragma once

#include <zorby/settings/ProfileKeys.h>

#include <array>

namespace zorby {

// clang-format off
inline constexpr auto kProfileKeyRows = std::to_array<ProfileKeyRow>({
    // Subject headings and record numbers
    {ZP_SubjectCount, "ZP_SubjectCount", 2, nullptr},
    {ZP_SubjectType, "ZP_SubjectType", 0, "Library of Congress Subject Headings"},
    {ZP_Subject2Text, "ZP_Subject2Text", 0, ""},
    {ZP_NextSeqNo, "ZP_NextSeqNo", 0, "QRX000001"},
    {ZP_LastWorkform, "ZP_LastWorkform", 0, ""},

    // Rule set: basic, Texas Library Connection or custom
    {ZP_RadioBasic_TLC_Custom, "ZP_RadioBasic_TLC_Custom", 0, nullptr},

    // Display
    {ZP_ShowIndicators, "ZP_ShowIndicators", 0, nullptr},
    {ZP_ShowAllSpaces, "ZP_ShowAllSpaces", 0, nullptr},
    {ZP_DisplayNameOrMARC, "ZP_DisplayNameOrMARC", 2, nullptr},

    // Control fields set from other data
    {ZP_AutoSetCFRT, "ZP_AutoSetCFRT", 1, nullptr},
    {ZP_AutoSetCFPoP, "ZP_AutoSetCFPoP", 1, nullptr},
    {ZP_AutoSetCFDate, "ZP_AutoSetCFDate", 1, nullptr},

    // Font of the record text
    {ZP_FontName, "ZP_FontName", 0, "Arial"},
    {ZP_FontPointSize, "ZP_FontPointSize", 10, nullptr},
    {ZP_FontWeight, "ZP_FontWeight", 400, nullptr},
    {ZP_FontItalic, "ZP_FontItalic", 0, nullptr},

    // MARC rules in selection lists
    {ZP_USMARCRulesSelFldSub, "ZP_USMARCRulesSelFldSub", 1, nullptr},
    {ZP_USMARCRulesRepFldSub, "ZP_USMARCRulesRepFldSub", 1, nullptr},
    {ZP_USMARCRulesSelIndConFld, "ZP_USMARCRulesSelIndConFld", 1, nullptr},

    // Repairs during import
    {ZP_ImportFixCFSettings, "ZP_ImportFixCFSettings", 1, nullptr},
    {ZP_ImportFixDate, "ZP_ImportFixDate", 1, nullptr},
    {ZP_ImportFixPeriods, "ZP_ImportFixPeriods", 1, nullptr},
    {ZP_ImportRemoveBlanks, "ZP_ImportRemoveBlanks", 1, nullptr},
    {ZP_ImportFixPoP, "ZP_ImportFixPoP", 1, nullptr},
    {ZP_ImportFixRunningTime, "ZP_ImportFixRunningTime", 1, nullptr},
    {ZP_ImportFixIndicators, "ZP_ImportFixIndicators", 1, nullptr},
    {ZP_ImportFixLanguage, "ZP_ImportFixLanguage", 1, nullptr},
    {ZP_ImportChange4xxTo8xx, "ZP_ImportChange4xxTo8xx", 0, nullptr},
    {ZP_ImportFixGMDIfEmpty, "ZP_ImportFixGMDIfEmpty", 1, ""},

    // Shorter lists when adding or changing
    {ZP_FieldAddFewer, "ZP_FieldAddFewer", 0, nullptr},
    {ZP_FieldChangeFewer, "ZP_FieldChangeFewer", 0, nullptr},
    {ZP_SubfieldAddFewer, "ZP_SubfieldAddFewer", 0, nullptr},
    {ZP_SubfieldChangeFewer, "ZP_SubfieldChangeFewer", 0, nullptr},

    // Error policy (0 export error, 1 warning, 2 ignore): ignored by default
    {ZP_RC_No260a, "ZP_RC_No260a", 2, nullptr},
    {ZP_RC_No260b, "ZP_RC_No260b", 2, nullptr},
    {ZP_RC_No260c, "ZP_RC_No260c", 2, nullptr},
    {ZP_RC_No300a, "ZP_RC_No300a", 2, nullptr},
    {ZP_RC_No300b, "ZP_RC_No300b", 2, nullptr},
    {ZP_RC_No300c, "ZP_RC_No300c", 2, nullptr},
    {ZP_RC_NoNotes, "ZP_RC_NoNotes", 2, nullptr},
    {ZP_RC_NoSubjects, "ZP_RC_NoSubjects", 2, nullptr},
    {ZP_RC_CFDate, "ZP_RC_CFDate", 2, nullptr},
    {ZP_RC_CFRT, "ZP_RC_CFRT", 2, nullptr},
    {ZP_RC_CFPoP, "ZP_RC_CFPoP", 2, nullptr},
    {ZP_RC_NoHoldings, "ZP_RC_NoHoldings", 2, nullptr},
    {ZP_RC_TitleInUpperCase, "ZP_RC_TitleInUpperCase", 2, nullptr},
    {ZP_RC_NonMARCFieldsOrSubfields, "ZP_RC_NonMARCFieldsOrSubfields", 2, nullptr},
    {ZP_RC_TooManyNonRepeatables, "ZP_RC_TooManyNonRepeatables", 2, nullptr},

    // Error policy: a warning by default
    {ZP_RC_BI_ExtraField, "ZP_RC_BI_ExtraField", 1, nullptr},
    {ZP_RC_BI_InvalidChar, "ZP_RC_BI_InvalidChar", 1, nullptr},
    {ZP_RC_BI_MissingOrInvalidInds, "ZP_RC_BI_MissingOrInvalidInds", 1, nullptr},
    {ZP_RC_BI_UnreadableSub, "ZP_RC_BI_UnreadableSub", 1, nullptr},
    {ZP_RC_BI_GMD_Bad, "ZP_RC_BI_GMD_Bad", 1, nullptr},
    {ZP_RC_CF_ExtraData, "ZP_RC_CF_ExtraData", 1, nullptr},
    {ZP_RC_CF_InvalidChar, "ZP_RC_CF_InvalidChar", 1, nullptr},
    {ZP_RC_CF_MissingData, "ZP_RC_CF_MissingData", 1, nullptr},
    {ZP_RC_CF_007_Msg, "ZP_RC_CF_007_Msg", 1, nullptr},
    {ZP_RC_CF_008_Msg, "ZP_RC_CF_008_Msg", 1, nullptr},
    {ZP_RC_RD_BadBAOD, "ZP_RC_RD_BadBAOD", 1, nullptr},
    {ZP_RC_RD_BadFieldLength, "ZP_RC_RD_BadFieldLength", 1, nullptr},
    {ZP_RC_RD_ExtraEntriesRemoved, "ZP_RC_RD_ExtraEntriesRemoved", 1, nullptr},
    {ZP_RC_RD_UnreadableCharInTag, "ZP_RC_RD_UnreadableCharInTag", 1, nullptr},
    {ZP_RC_MT_Bad_008, "ZP_RC_MT_Bad_008", 1, nullptr},
    {ZP_RC_MT_Bad_007, "ZP_RC_MT_Bad_007", 1, nullptr},
    {ZP_RC_MT_Bad_Ldr, "ZP_RC_MT_Bad_Ldr", 1, nullptr},

    // Last menu command, by the host's number
    {ZP_RememberedSubfieldCommand, "ZP_RememberedSubfieldCommand", 1032, nullptr},
    {ZP_RememberedFieldCommand, "ZP_RememberedFieldCommand", 1041, nullptr},

    // Record view
    {ZP_RecordViewShowControlFields, "ZP_RecordViewShowControlFields", 0, nullptr},
    {ZP_RecordViewShowControlFieldsMARC, "ZP_RecordViewShowControlFieldsMARC", 1, nullptr},
    {ZP_RecordViewShowAdditionalMaterials, "ZP_RecordViewShowAdditionalMaterials", 0, nullptr},
    {ZP_RecordViewShowAdditionalMaterialsMARC, "ZP_RecordViewShowAdditionalMaterialsMARC", 0,
     nullptr},
    {ZP_RecordViewShowHoldings, "ZP_RecordViewShowHoldings", 1, nullptr},
    {ZP_RecordViewShowErrorsAndWarnings, "ZP_RecordViewShowErrorsAndWarnings", 1, nullptr},
    {ZP_RecordViewActiveTab, "ZP_RecordViewActiveTab", 0, ""},
    {ZP_ShowFixedRecordCount, "ZP_ShowFixedRecordCount", 0, nullptr},
    {ZP_RecordViewerShowImportRepairLog, "ZP_RecordViewerShowImportRepairLog", 1, nullptr},
    {ZP_ShowImportRepairCount, "ZP_ShowImportRepairCount", 1, nullptr},

    // Subfields of all standard workforms
    {ZP_SubsInAllStandardWorkforms, "ZP_SubsInAllStandardWorkforms", 0, ""},

    // Add records by text
    {ZP_AddRecordsCertainTextTree, "ZP_AddRecordsCertainTextTree", 0, ""},
    {ZP_AddRecordsCertainTextUser, "ZP_AddRecordsCertainTextUser", 0, ""},
    {ZP_AddRecordsCertainTextMatchCase, "ZP_AddRecordsCertainTextMatchCase", 0, ""},
    {ZP_AddRecordsCertainTextWholeWordsOnly, "ZP_AddRecordsCertainTextWholeWordsOnly", 1, ""},
    {ZP_AddRecordsCertainTextAndOrNot, "ZP_AddRecordsCertainTextAndOrNot", 0, "or"},
    {ZP_AddRecordsCertainTextLookFor1, "ZP_AddRecordsCertainTextLookFor1", 0, ""},
    {ZP_AddRecordsCertainTextLookFor2, "ZP_AddRecordsCertainTextLookFor2", 0, ""},

    // Remove records by text
    {ZP_RemoveRecordsCertainTextTree, "ZP_RemoveRecordsCertainTextTree", 0, ""},
    {ZP_RemoveRecordsCertainTextUser, "ZP_RemoveRecordsCertainTextUser", 0, ""},
    {ZP_RemoveRecordsCertainTextMatchCase, "ZP_RemoveRecordsCertainTextMatchCase", 0, ""},
    {ZP_RemoveRecordsCertainTextWholeWordsOnly, "ZP_RemoveRecordsCertainTextWholeWordsOnly", 1, ""},
    {ZP_RemoveRecordsCertainTextAndOrNot, "ZP_RemoveRecordsCertainTextAndOrNot", 0, "or"},
    {ZP_RemoveRecordsCertainTextLookFor1, "ZP_RemoveRecordsCertainTextLookFor1", 0, ""},
    {ZP_RemoveRecordsCertainTextLookFor2, "ZP_RemoveRecordsCertainTextLookFor2", 0, ""},

    // Find and replace
    {ZP_FindAndReplaceTree, "ZP_FindAndReplaceTree", 0, ""},
    {ZP_FindAndReplaceUser, "ZP_FindAndReplaceUser", 0, ""},
    {ZP_FindAndReplaceMatchCase, "ZP_FindAndReplaceMatchCase", 0, ""},
    {ZP_FindAndReplaceWholeWordsOnly, "ZP_FindAndReplaceWholeWordsOnly", 1, ""},
    {ZP_FindAndReplaceLookFor1, "ZP_FindAndReplaceLookFor1", 0, ""},
    {ZP_FindAndReplaceReplaceWith, "ZP_FindAndReplaceReplaceWith", 0, ""},
    {ZP_FindAndReplaceTree, "ZP_FindAndReplaceTree", 0, ""},
    {ZP_FindAndReplaceUser, "ZP_FindAndReplaceUser", 0, ""},

    // Spell checker
    {ZP_SPDictionaryAmerican, "ZP_SPDictionaryAmerican", 1, ""},
    {ZP_SPDictionaryBritish, "ZP_SPDictionaryBritish", 0, ""},
    {ZP_SPDictionaryFrench, "ZP_SPDictionaryFrench", 0, ""},
    {ZP_SPDictionarySpanish, "ZP_SPDictionarySpanish", 0, ""},
    {ZP_SPCheckElectronicLocation, "ZP_SPCheckElectronicLocation", 0, ""},
    {ZP_SPCheckDoubleWords, "ZP_SPCheckDoubleWords", 1, ""},
    {ZP_SPCheckNumbersAndCodes, "ZP_SPCheckNumbersAndCodes", 0, ""},
    {ZP_SPCheckPersonalNameSubfields, "ZP_SPCheckPersonalNameSubfields", 1, ""},
    {ZP_SPTreatPersonalNamesAsWholeWords, "ZP_SPTreatPersonalNamesAsWholeWords", 1, ""},
    {ZP_SPCheckWordsInAllCaps, "ZP_SPCheckWordsInAllCaps", 1, ""},
    {ZP_SPCheckWordsThatContainDigits, "ZP_SPCheckWordsThatContainDigits", 0, ""},
    {ZP_SPCheckHoldings, "ZP_SPCheckHoldings", 1, ""},

    // Backup, compaction and refresh
    {ZP_BackupAutoMode, "ZP_BackupAutoMode", 1, nullptr},
    {ZP_NumberOfBackups, "ZP_NumberOfBackups", 5, nullptr},
    {ZP_RemindCompactDays, "ZP_RemindCompactDays", 14, nullptr},
    {ZP_AutoRefreshSeconds, "ZP_AutoRefreshSeconds", 300, nullptr},

    // Windows
    {ZP_ToolbarVisible, "ZP_ToolbarVisible", 1, nullptr},
    {ZP_StatusBarVisible, "ZP_StatusBarVisible", 1, nullptr},
    {ZP_ZorbyToolbarVisible, "ZP_ZorbyToolbarVisible", 1, nullptr},
    {ZP_ZorbyStatusBarVisible, "ZP_ZorbyStatusBarVisible", 1, nullptr},
    {ZP_WindowPosMain, "ZP_WindowPosMain", 0, ""},
    {ZP_ZorbyChildrenAreZoomed, "ZP_ZorbyChildrenAreZoomed", 0, ""},
    {ZP_RecVAutomaticSort, "ZP_RecVAutomaticSort", 1, ""},

    // Import and export
    {ZP_ExportName, "ZP_ExportName", 0, R"(a:\microlif.001)"},
    {ZP_ImportPath, "ZP_ImportPath", 0, R"(a:\)"},
    {ZP_ExportFileTypeID, "ZP_ExportFileTypeID", 1, nullptr},
    {ZP_ImportFileTypeID, "ZP_ImportFileTypeID", 1, nullptr},
    {ZP_ExportErrors, "ZP_ExportErrors", 0, nullptr},
    {ZP_TemplateImportPath, "ZP_TemplateImportPath", 0, ""},
    {ZP_TemplateExportPath, "ZP_TemplateExportPath", 0, ""},

    // Add records by other criteria
    {ZP_AddRecordsCertainControlFieldValues, "ZP_AddRecordsCertainControlFieldValues", 0, ""},
    {ZP_AddRecordsWithErrorsOrWarnings, "ZP_AddRecordsWithErrorsOrWarnings", 0, nullptr},
    {ZP_AddRecordsSpecificDate, "ZP_AddRecordsSpecificDate", 0, ""},
    {ZP_AddRecordsFromImportBatch, "ZP_AddRecordsFromImportBatch", 0, ""},
    {ZP_AddRecordsCreatedUsingWorkform, "ZP_AddRecordsCreatedUsingWorkform", 0, ""},
    {ZP_AddRecordMissingField, "ZP_AddRecordMissingField", 0, nullptr},
    {ZP_AddRecordIndicator, "ZP_AddRecordIndicator", 0, nullptr},

    // Select records by other criteria
    {ZP_SelectRecordsCertainControlFieldValues, "ZP_SelectRecordsCertainControlFieldValues", 0, ""},
    {ZP_SelectRecordsWithErrorsOrWarnings, "ZP_SelectRecordsWithErrorsOrWarnings", 0, nullptr},
    {ZP_SelectRecordsSpecificDate, "ZP_SelectRecordsSpecificDate", 0, ""},
    {ZP_SelectRecordsFromImportBatch, "ZP_SelectRecordsFromImportBatch", 0, ""},
    {ZP_SelectRecordsCreatedUsingWorkform, "ZP_SelectRecordsCreatedUsingWorkform", 0, ""},
    {ZP_SelectRecordMissingField, "ZP_SelectRecordMissingField", 0, nullptr},
    {ZP_SelectRecordIndicator, "ZP_SelectRecordIndicator", 0, nullptr},

    // Change of control fields
    {ZP_ChangeRecordsControlField, "ZP_ChangeRecordsControlField", 0, ""},

    // Global edits
    {ZP_GEChangeSubfieldText, "ZP_GEChangeSubfieldText", 0, ""},
    {ZP_GEChangeField, "ZP_GEChangeField", 0, ""},
    {ZP_GEDeleteField, "ZP_GEDeleteField", 0, ""},
    {ZP_GEChangeSubfields, "ZP_GEChangeSubfields", 0, ""},
    {ZP_GEDeleteSubfields, "ZP_GEDeleteSubfields", 0, ""},
    {ZP_GEAddField, "ZP_GEAddField", 0, ""},
    {ZP_GEAddSubfield, "ZP_GEAddSubfield", 0, ""},
    {ZP_GEDeleteSubjectHeadings, "ZP_GEDeleteSubjectHeadings", 0, ""},
    {ZP_GEFixUpperCaseSubfields, "ZP_GEFixUpperCaseSubfields", 0, ""},
    {ZP_GEFixCallNumberCutters, "ZP_GEFixCallNumberCutters", 0, ""},
    {ZP_GESetIndicators, "ZP_GESetIndicators", 0, ""},
    {ZP_GEForceText, "ZP_GEForceText", 0, ""},
    {ZP_GEChangeSingleSubfield, "ZP_GEChangeSingleSubfield", 0, ""},

    // Cards
    {ZP_OptionsCards, "ZP_OptionsCards", 0, 
     R"(CardsPerSheet=3\\)"
     R"(VerticalOffset=0.00\\)"
     R"(HorizontalOffset=0.00\\)"
     R"(HoleCenterVerticalOffset=2.60\\)"
     R"(SubjectHeadingsToInclude=0\\)"
     R"(CardSetIncludes=ams\\)"
     R"(SLIncludes=None/1\\)"
     R"(MEIncludes=All/1\\)"
     R"(AEIncludes=All/1\\)"},
    {ZP_OptionsCardsFonts, "ZP_OptionsCardsFonts", 0, 
     R"(CallNumber=Courier,10,400,0\\)"
     R"(Heading=Courier,10,700,0\\)"
     R"(ContHeading=Courier,10,400,0\\)"
     R"(Body=Courier,10,400,0\\)"
     R"(Tracings=Courier,10,400,0\\)"},
    {ZP_OptionsCardsMoreSubfieldsSL, "ZP_OptionsCardsMoreSubfieldsSL", 0,
     R"(FromEdit=^^FromTree=\020a\022a\^^)"},
    {ZP_OptionsCardsMoreSubfieldsME, "ZP_OptionsCardsMoreSubfieldsME", 0, ""},
    {ZP_OptionsCardsMoreSubfieldsAE, "ZP_OptionsCardsMoreSubfieldsAE", 0, ""},
    {ZP_OptionsCardsSelectNotesSL, "ZP_OptionsCardsSelectNotesSL", 0, ""},
    {ZP_OptionsCardsSelectNotesME, "ZP_OptionsCardsSelectNotesME", 0, ""},
    {ZP_OptionsCardsSelectNotesAE, "ZP_OptionsCardsSelectNotesAE", 0, ""},

    // Labels
    {ZP_OptionsLabels, "ZP_OptionsLabels", 0, 
     R"(LabelType=S1^^)"
     R"(LabelOffsetV=0.0^^)"
     R"(LabelOffsetH=0.0^^)"
     R"(LabelNumberOfSets=0^^)"
     R"(LabelAdditionalSubfields=^^)"
     R"(LabelCallnumberOrientation=0^^)"},
    {ZP_OptionsLabelsFonts, "ZP_OptionsLabelsFonts", 0, ""},

    // Holdings and sort orders
    {ZP_NewHoldings, "ZP_NewHoldings", 0, ""},
    {ZP_SortNotes, "ZP_SortNotes", 0, ""},
    {ZP_SortSubjects, "ZP_SortSubjects", 0, ""},

    // Printing
    {ZP_PrintCardProcess, "ZP_PrintCardProcess", 0, ""},
    {ZP_PrintLabelProcess, "ZP_PrintLabelProcess", 0, ""},
    {ZP_PrintCardPrinter, "ZP_PrintCardPrinter", 0, ""},
    {ZP_PrintLabelPrinter, "ZP_PrintLabelPrinter", 0, ""},
    {ZP_PrintListOrientation, "ZP_PrintListOrientation", 1, ""},
    {ZP_PrintCatalogerOrientation, "ZP_PrintCatalogerOrientation", 1, ""},
    {ZP_PrintRecordViewerOrientation, "ZP_PrintRecordViewerOrientation", 1, ""},
    {ZP_PrintCardTray, "ZP_PrintCardTray", 0, ""},
    {ZP_PrintLabelTray, "ZP_PrintLabelTray", 0, ""},

    // Other
    {ZP_FindDialog, "ZP_FindDialog", 0, ""},
    {ZP_526Quillory, "ZP_526Quillory", 0, ""},
    {ZP_ShowAlexandria542Warning, "ZP_ShowAlexandria542Warning", 1, ""},

    {kProfileKeyTableEnd, "", 0, nullptr},
});
// clang-format on

}  // namespace zorby
