// The kinds of node that rigs are made of. What they would do to forms is not worked out.

#include "scene/NodeType.h"

namespace host::scene {

namespace {

// clang-format off
const NodeTypeRow ROWS[] = {
    {"*geometryFilter", "node",
        "inputGeometry/ig generic m; outputGeometry/og generic mo; envelope/en float k =1 0..1; handles/hnd message hm"},
    {"*weightGeometryFilter", "geometryFilter", ""},
    {"skinCluster", "geometryFilter",
        "matrix/ma matrix m; bindPreMatrix/pm matrix m; geomMatrix/gm matrix; lockWeights/lw bool m; skinningMethod/skm enum {Classic_Linear:Dual_Quaternion:Weight_Blended};"
        "maxInfluences/mi short =5 1..; maintainMaxInfluences/mmi bool; normalizeWeights/nw enum {None:Interactive:Post} =1; dropoffRate/dr float =4;"
        "weightDistribution/wtd enum {Distance:Neighbors}; deformUserNormals/dun bool =1; useComponents/uc bool"},
    {"cluster", "weightGeometryFilter", "relative/rel bool; matrix/ma matrix; bindPreMatrix/pm matrix"},
    {"clusterHandle", "shape", "origin/or double3; weightedNode/wn message"},
    {"ffd", "weightGeometryFilter",
        "deformedLattice/dlp lattice; baseLattice/blp lattice; local/lo bool k =1; localInfluenceS/lis short k =2; localInfluenceT/lit short k =2;"
        "localInfluenceU/liu short k =2; outsideLattice/ot enum {Inside:All:Falloff}; outsideFalloffDist/ofd double"},
    {"baseLattice", "shape", "latticeOutput/lo lattice o"},
    {"blendShape", "weightGeometryFilter",
        "weight/w float mk; inputTarget/it generic m; origin/or enum {world:local} =1; topologyCheck/tc bool =1; supportNegativeWeights/sn bool; parallelBlender/pb bool"},
    {"nonLinear", "weightGeometryFilter", "deformerData/dd message; matrix/ma matrix"},
    {"*deformFunc", "shape", "lowBound/lb double k =-1 -10..0; highBound/hb double k =1 0..10; handleWidth/hw double =1"},
    {"deformBend", "deformFunc", "curvature/cur doubleAngle k"},
    {"deformTwist", "deformFunc", "startAngle/sa doubleAngle k; endAngle/ea doubleAngle k"},
    {"deformSquash", "deformFunc", "factor/fac double k; expand/exp double k =1; maxExpandPos/mep double k =0.5; startSmoothness/ss double k; endSmoothness/es double k"},
    {"deformFlare", "deformFunc", "startFlareX/sfx double k =1; startFlareZ/sfz double k =1; endFlareX/efx double k =1; endFlareZ/efz double k =1; curve/cur double k"},
    {"deformSine", "deformFunc", "amplitude/amp double k; wavelength/wav double k =2; offset/off double k; dropoff/dr double k"},
    {"deformWave", "deformFunc", "minRadius/mnr double k; maxRadius/mxr double k =1; amplitude/amp double k; wavelength/wav double k =1; offset/off double k; dropoff/dr double k"},
    {"*ikSolver", "node", "tolerance/to double =0.0001; maxIterations/mi short =20"},
    {"ikSCsolver", "ikSolver", ""},
    {"ikRPsolver", "ikSolver", ""},
    {"ikSplineSolver", "ikSolver", ""},
    {"dagPose", "node", "members/m message m; bindPose/bp bool"},
    {"*dimensionShape", "shape", ""},
    {"distanceDimShape", "dimensionShape", "startPoint/sp double3:doubleLinear; endPoint/ep double3:doubleLinear; distance/dist doubleLinear o"},
};
// clang-format on

} // namespace

QVector<NodeTypeRow> DeformerTypeRows()
{
    return QVector<NodeTypeRow>(std::begin(ROWS), std::end(ROWS));
}

} // namespace host::scene
