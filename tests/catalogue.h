// Every public node class of the library, each with a factory that builds its tree for a release
// code: the ground that the sweeps over all classes (pass loops, clones, random operation sequences)
// stand on. Shared by the tests and the fuzz targets; a new public class is added here.
#ifndef QARVELT_TESTS_CATALOGUE_H
#define QARVELT_TESTS_CATALOGUE_H

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <qarvelt/qarvelt.h>

namespace qarvelt::testing {

struct NodeClass {
  const char* name;
  std::unique_ptr<CSQLClause> (*make)(int release);
};

template <class T>
std::unique_ptr<CSQLClause> buildNode(int release) {
  if constexpr (std::is_constructible_v<T, bool, int>) {
    return std::make_unique<T>(true, release);
  } else {
    return std::make_unique<T>(true);  // containers take no release code
  }
}

// The release codes the library knows.
constexpr int kFirstRelease = 0;
constexpr int kLastRelease = kNewestRelease;

inline const std::vector<NodeClass>& NodeClasses() {
  static const std::vector<NodeClass> classes = {
      {"CSQLClauseColumn", &buildNode<CSQLClauseColumn>},
      {"CSQLClauseRenameColumn", &buildNode<CSQLClauseRenameColumn>},
      {"CSQLClauseIdentity", &buildNode<CSQLClauseIdentity>},
      {"CSQLClauseColumnProp", &buildNode<CSQLClauseColumnProp>},
      {"CSQLClauseColumnProp::CSubSQLItem", &buildNode<CSQLClauseColumnProp::CSubSQLItem>},
      {"CSQLClauseColumnProp::CSubSQLItemLOB", &buildNode<CSQLClauseColumnProp::CSubSQLItemLOB>},
      {"CSQLClauseObjTypeColumnProp", &buildNode<CSQLClauseObjTypeColumnProp>},
      {"CSQLClauseNestTableColumnProp", &buildNode<CSQLClauseNestTableColumnProp>},
      {"CSQLClauseSubstitutableColumn", &buildNode<CSQLClauseSubstitutableColumn>},
      {"CSQLClauseVarrayColProp", &buildNode<CSQLClauseVarrayColProp>},
      {"CSQLClauseAddColumn", &buildNode<CSQLClauseAddColumn>},
      {"CSQLClauseAddColumn::CSubSQLClauseColumn", &buildNode<CSQLClauseAddColumn::CSubSQLClauseColumn>},
      {"CSQLClauseModifyColumn", &buildNode<CSQLClauseModifyColumn>},
      {"CSQLClauseModifyColProp", &buildNode<CSQLClauseModifyColProp>},
      {"CSQLClauseModifyColProp::CSubSQLClauseColumn",
       &buildNode<CSQLClauseModifyColProp::CSubSQLClauseColumn>},
      {"CSQLClauseModifyColSubs", &buildNode<CSQLClauseModifyColSubs>},
      {"CSQLClauseDropColumn", &buildNode<CSQLClauseDropColumn>},
      {"CSQLClauseInlineConstraint", &buildNode<CSQLClauseInlineConstraint>},
      {"CSQLClauseInlineRefConstraint", &buildNode<CSQLClauseInlineRefConstraint>},
      {"CSQLClauseOutLineConstraint", &buildNode<CSQLClauseOutLineConstraint>},
      {"CSQLClauseOutLineRefConstraint", &buildNode<CSQLClauseOutLineRefConstraint>},
      {"CSQLClauseReferences", &buildNode<CSQLClauseReferences>},
      {"CSQLClauseScopedTabRefConstraint", &buildNode<CSQLClauseScopedTabRefConstraint>},
      {"CSQLClauseScopedTabRefConstraint::CSubSQLItem",
       &buildNode<CSQLClauseScopedTabRefConstraint::CSubSQLItem>},
      {"CSQLClauseConstraintState", &buildNode<CSQLClauseConstraintState>},
      {"CSQLClauseUsingIndex", &buildNode<CSQLClauseUsingIndex>},
      {"CSQLClauseEnableDisable", &buildNode<CSQLClauseEnableDisable>},
      {"CSQLClauseConstraint", &buildNode<CSQLClauseConstraint>},
      {"CSQLClauseDropConstraint", &buildNode<CSQLClauseDropConstraint>},
      {"CSQLClauseIndexAttributes", &buildNode<CSQLClauseIndexAttributes>},
      {"CSQLClauseLOBStorage", &buildNode<CSQLClauseLOBStorage>},
      {"CSQLClauseLOBParameter", &buildNode<CSQLClauseLOBParameter>},
      {"CSQLClauseLOBItem", &buildNode<CSQLClauseLOBItem>},
      {"CSQLClauseLOBItemB", &buildNode<CSQLClauseLOBItemB>},
      {"CSQLClauseModifyLOBStorage", &buildNode<CSQLClauseModifyLOBStorage>},
      {"CSQLClauseModifyLOBParameter", &buildNode<CSQLClauseModifyLOBParameter>},
      {"CSQLClauseTablePartition", &buildNode<CSQLClauseTablePartition>},
      {"CSQLClauseTablePartition::CSubSQLItemRange", &buildNode<CSQLClauseTablePartition::CSubSQLItemRange>},
      {"CSQLClauseTablePartition::CSubSQLItemHash", &buildNode<CSQLClauseTablePartition::CSubSQLItemHash>},
      {"CSQLClauseTablePartition::CSubSQLItemList", &buildNode<CSQLClauseTablePartition::CSubSQLItemList>},
      {"CSQLClauseTablePartition::CSubSQLItemTemplate",
       &buildNode<CSQLClauseTablePartition::CSubSQLItemTemplate>},
      {"CSQLClauseHashPart", &buildNode<CSQLClauseHashPart>},
      {"CSQLClausePartLevelSubpart", &buildNode<CSQLClausePartLevelSubpart>},
      {"CSQLClausePartitionSpec", &buildNode<CSQLClausePartitionSpec>},
      {"CSQLClauseSubPartitionSpec", &buildNode<CSQLClauseSubPartitionSpec>},
      {"CSQLClausePartitionStorage", &buildNode<CSQLClausePartitionStorage>},
      {"CSQLClausePartitionStorage::CSubSQLItemLOB", &buildNode<CSQLClausePartitionStorage::CSubSQLItemLOB>},
      {"CSQLClausePartitionAttribute", &buildNode<CSQLClausePartitionAttribute>},
      {"CSQLClauseTabPartitionDesc", &buildNode<CSQLClauseTabPartitionDesc>},
      {"CSQLClauseRangeValues", &buildNode<CSQLClauseRangeValues>},
      {"CSQLClauseListValues", &buildNode<CSQLClauseListValues>},
      {"CSQLClauseGlobalPartitioning", &buildNode<CSQLClauseGlobalPartitioning>},
      {"CSQLClauseGlobalPartitionIndex", &buildNode<CSQLClauseGlobalPartitionIndex>},
      {"CSQLClauseAddHashSubPartition", &buildNode<CSQLClauseAddHashSubPartition>},
      {"CSQLClauseAddListSubPartition", &buildNode<CSQLClauseAddListSubPartition>},
      {"CSQLClauseStorage", &buildNode<CSQLClauseStorage>},
      {"CSQLClausePhysicalAttr", &buildNode<CSQLClausePhysicalAttr>},
      {"CSQLClauseSegmentAttribute", &buildNode<CSQLClauseSegmentAttribute>},
      {"CSQLClauseParallel", &buildNode<CSQLClauseParallel>},
      {"CSQLClauseParallel::CSubSQLItem", &buildNode<CSQLClauseParallel::CSubSQLItem>},
      {"CSQLClauseAllocateExtent", &buildNode<CSQLClauseAllocateExtent>},
      {"CSQLClauseDeallocateUnused", &buildNode<CSQLClauseDeallocateUnused>},
      {"CSQLClauseKeyCompression", &buildNode<CSQLClauseKeyCompression>},
      {"CSQLClauseExceptions", &buildNode<CSQLClauseExceptions>},
      {"CSQLClausePhysicalProp", &buildNode<CSQLClausePhysicalProp>},
      {"CSQLClauseTableProp", &buildNode<CSQLClauseTableProp>},
      {"CSQLClauseIdxOrgTable", &buildNode<CSQLClauseIdxOrgTable>},
      {"CSQLClauseAlterIOT", &buildNode<CSQLClauseAlterIOT>},
      {"CSQLClauseAlterOverflow", &buildNode<CSQLClauseAlterOverflow>},
      {"CSQLClauseAlterMappingTable", &buildNode<CSQLClauseAlterMappingTable>},
      {"CSQLClauseAddOverflow", &buildNode<CSQLClauseAddOverflow>},
      {"CSQLClauseExtDataProp", &buildNode<CSQLClauseExtDataProp>},
      {"CSQLClauseExtDataProp::CSubSQLItem", &buildNode<CSQLClauseExtDataProp::CSubSQLItem>},
      {"CSQLClauseAlterExtTable", &buildNode<CSQLClauseAlterExtTable>},
      {"CSQLClauseSuppLgGrp", &buildNode<CSQLClauseSuppLgGrp>},
      {"CSQLClauseSuppLgProp", &buildNode<CSQLClauseSuppLgProp>},
      {"CSQLClauseMoveTable", &buildNode<CSQLClauseMoveTable>},
      {"CSQLAlterIndex", &buildNode<CSQLAlterIndex>},
      {"CSQLAlterTable", &buildNode<CSQLAlterTable>},
      {"CSQLClauseAlterTablePartition", &buildNode<CSQLClauseAlterTablePartition>},
      {"CSQLClauseAltTableProp", &buildNode<CSQLClauseAltTableProp>},
      {"CSQLCreateIndex", &buildNode<CSQLCreateIndex>},
      {"CSQLCreateIndex::CSubSQLItemIndexExpr", &buildNode<CSQLCreateIndex::CSubSQLItemIndexExpr>},
      {"CSQLCreateIndex::CSubSQLItemPartition", &buildNode<CSQLCreateIndex::CSubSQLItemPartition>},
      {"CSQLCreateIndex::CSubSQLItemSubPartition", &buildNode<CSQLCreateIndex::CSubSQLItemSubPartition>},
      {"CSQLCreateIndex::CSubSQLItemCompPartition", &buildNode<CSQLCreateIndex::CSubSQLItemCompPartition>},
      {"CSQLCreateIndex::CSubSQLItemGlobalPartitioning",
       &buildNode<CSQLCreateIndex::CSubSQLItemGlobalPartitioning>},
      {"CSQLCreateSynonym", &buildNode<CSQLCreateSynonym>},
      {"CSQLCreateSequence", &buildNode<CSQLCreateSequence>},
      {"CSQLCreateDirectory", &buildNode<CSQLCreateDirectory>},
      {"CSQLCreateRole", &buildNode<CSQLCreateRole>},
      {"CSQLCreateContext", &buildNode<CSQLCreateContext>},
      {"CSQLCreateLibrary", &buildNode<CSQLCreateLibrary>},
      {"CSQLClauseAuthenticated", &buildNode<CSQLClauseAuthenticated>},
      {"CSQLCreateDBLink", &buildNode<CSQLCreateDBLink>},
      {"CSQLCreateRollback", &buildNode<CSQLCreateRollback>},
      {"CSQLCreateOutline", &buildNode<CSQLCreateOutline>},
      {"CSQLCreateType", &buildNode<CSQLCreateType>},
      {"CSQLCreateTypeBody", &buildNode<CSQLCreateTypeBody>},
      {"CSQLCreateTable", &buildNode<CSQLCreateTable>},
      {"CSQLCreateTable::CSubSQLItemProp", &buildNode<CSQLCreateTable::CSubSQLItemProp>},
      {"CSQLAttr", &buildNode<CSQLAttr>},
      {"CSQLAttrDataType", &buildNode<CSQLAttrDataType>},
      {"CSQLContAND", &buildNode<CSQLContAND>},
      {"CSQLContOR", &buildNode<CSQLContOR>},
      {"CSQLList", &buildNode<CSQLList>},
      // views and triggers
      {"CSQLCreateView", &buildNode<CSQLCreateView>},
      {"CSQLCreateView::CSubSQLItemAlias", &buildNode<CSQLCreateView::CSubSQLItemAlias>},
      {"CSQLCreateTrigger", &buildNode<CSQLCreateTrigger>},
      {"CSQLCreateTrigger::CSubSQLItemEvent", &buildNode<CSQLCreateTrigger::CSubSQLItemEvent>},
      // materialized views and their logs
      {"CSQLCreateMaterializedView", &buildNode<CSQLCreateMaterializedView>},
      {"CSQLCreateMaterializedViewLog", &buildNode<CSQLCreateMaterializedViewLog>},
      {"CSQLAlterMaterializedView", &buildNode<CSQLAlterMaterializedView>},
      {"CSQLAlterMViewLog", &buildNode<CSQLAlterMViewLog>},
      // clusters and tablespaces
      {"CSQLCreateCluster", &buildNode<CSQLCreateCluster>},
      {"CSQLCreateCluster::CSubSQLItemColumn", &buildNode<CSQLCreateCluster::CSubSQLItemColumn>},
      {"CSQLAlterCluster", &buildNode<CSQLAlterCluster>},
      {"CSQLCreateTablespace", &buildNode<CSQLCreateTablespace>},
      {"CSQLClauseDataFile", &buildNode<CSQLClauseDataFile>},
      // users, profiles and the database
      {"CSQLCreateUser", &buildNode<CSQLCreateUser>},
      {"CSQLCreateUser::CSubSQLItemQuota", &buildNode<CSQLCreateUser::CSubSQLItemQuota>},
      {"CSQLCreateProfile", &buildNode<CSQLCreateProfile>},
      {"CSQLAlterDatabase", &buildNode<CSQLAlterDatabase>},
      {"CSQLAlterDatabase::CSubSQLItemFile", &buildNode<CSQLAlterDatabase::CSubSQLItemFile>},
      // dimensions, operators and index types
      {"CSQLCreateDimension", &buildNode<CSQLCreateDimension>},
      {"CSQLCreateDimension::CSubSQLItemLevel", &buildNode<CSQLCreateDimension::CSubSQLItemLevel>},
      {"CSQLCreateDimension::CSubSQLItemHierarchy", &buildNode<CSQLCreateDimension::CSubSQLItemHierarchy>},
      {"CSQLCreateDimension::CSubSQLItemJoinKey", &buildNode<CSQLCreateDimension::CSubSQLItemJoinKey>},
      {"CSQLCreateDimension::CSubSQLItemAttribute", &buildNode<CSQLCreateDimension::CSubSQLItemAttribute>},
      {"CSQLCreateOperator", &buildNode<CSQLCreateOperator>},
      {"CSQLCreateOperator::CSubSQLItemBinding", &buildNode<CSQLCreateOperator::CSubSQLItemBinding>},
      {"CSQLCreateOperator::CSubSQLItemAncillary", &buildNode<CSQLCreateOperator::CSubSQLItemAncillary>},
      {"CSQLCreateIndexType", &buildNode<CSQLCreateIndexType>},
      {"CSQLCreateIndexType::CSubSQLItemOperator", &buildNode<CSQLCreateIndexType::CSubSQLItemOperator>},
      {"CSQLCreateIndexType::CSubSQLItemArrayDML", &buildNode<CSQLCreateIndexType::CSubSQLItemArrayDML>},
      {"CSQLAlterIndexType", &buildNode<CSQLAlterIndexType>},
      {"CSQLAlterIndexType::CSubSQLItemOperator", &buildNode<CSQLAlterIndexType::CSubSQLItemOperator>},
  };
  return classes;
}

}  // namespace qarvelt::testing

#endif  // QARVELT_TESTS_CATALOGUE_H
