#pragma once

// What a program needs that uses this library to catalogue. It starts and ends in this order, on
// one thread:
//
//   1. It finds the data files: InstalledDataFolder gives the folder of those that came with the
//      library. A folder ends in a separator.
//   2. It puts its ports in force (zorby/platform/): a MessagePort that shows messages, and an
//      ApplicationPort whose Folder is that of the data files, since the dictionary is looked for
//      there. A port that is not put in force is a plain one, for programs without a window.
//      A guard from PortInForce.h takes a port back when its time is over.
//   3. SetZorbyProfilePath, and CGeneral::m_iniUserProfile.Initialize, if it keeps settings.
//   4. CInfoAboutHoldingsTypeList::CreateTheOneAndOnly, with the folder
//   5. CMARCFormat::InitializeYourself, with the user's own fields, or nothing
//   6. CTemplateList::InitializeTemplateList, with the folder
//   7. CTemplate::InitTemplateCB, if it keeps workforms of the user: the callbacks reach its
//      database. Without this call there are the standard workforms only.
//   8. CCFGlobalEditingEntryArray::InitializeYourself, if it has a global edit.
//
// At the end it calls DestroyYourself, DestroyTemplateList, FreeYourself and DestroyYourself of
// these, in the opposite order. Steps 4 to 6 return 0, after telling the user, if a file can't be
// opened, and throw CArchiveException if one is damaged; the program then does not start.
//
// What these steps put in force belongs to the thread that called them. Objects that a program
// makes (records, workforms, lists) may be used by any one thread at a time, and by several as long
// as all only call const operations.
//
// examples/host/ is such a program, and docs/library.md explains it.

#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/charset/Convert.h>
#include <zorby/checking/ErrorCodeBits.h>
#include <zorby/checking/RecordErrorList.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/layouts/GlobalEditing.h>
#include <zorby/platform/DataFolder.h>
#include <zorby/platform/PortInForce.h>
#include <zorby/record/Pmarc.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>
#include <zorby/workforms/Template.h>
#include <zorby/workforms/TemplateList.h>
