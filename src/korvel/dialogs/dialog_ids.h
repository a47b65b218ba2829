#pragma once

/// The numbers of the templates, controls and pictures of the common dialogs. Those of controls and pictures
/// are kept as derived dialogs of hosts use them.
namespace korvel::internal {

constexpr int CodeListTemplateId = 15058;
constexpr int CodeListId = 15063;
constexpr int AddCodesId = 18036;
constexpr int RemoveCodesId = 18037;
constexpr int EditCodesId = 18038;
constexpr int MoveUpCodeId = 15060;
constexpr int MoveDownCodeId = 15061;

constexpr int AddPicture = 15016;
constexpr int EditPicture = 15017;
constexpr int RemovePicture = 15018;
constexpr int MoveUpPicture = 15019;
constexpr int MoveDownPicture = 15020;

constexpr int EditCodeListTemplateId = 15059;
constexpr int CodeEditId = 15064;
constexpr int ValueEditId = 15065;
constexpr int CodeLabelId = 15066;
constexpr int ValueLabelId = 15067;

constexpr int EditAttributsTemplateId = 15001;
constexpr int AttributeNameLabelId = 15070;
constexpr int AttributeNameId = 15071;
constexpr int AttributeTypeLabelId = 15072;
constexpr int AttributeTypeId = 15073;
constexpr int AttributeValueLabelId = 15074;
constexpr int AttributeValueId = 15075;
constexpr int AttributeProtectId = 15076;
constexpr int AttributeProblemId = 15077;

constexpr int ProgressTemplateId = 15056;
constexpr int CancelProcessingId = 15036;
constexpr int ProgressBarId = 15037;
constexpr int ProgressStatusId = 15038;

constexpr int TextTemplateId = 106;
constexpr int TextEditId = 2110;

} // namespace korvel::internal
